import QtQuick
import QtQuick.Layouts
import Marrowcut.Main
import Marrowcut.Style

// One job. Of the list's rows, only the current one takes the Tab key, so that Tab leaves a long list; the arrow keys
// go from row to row.
FocusScope {
    id: root

    required property int index
    required property string jobId
    required property string name
    required property string statusText
    required property int statusKind
    required property string etaText
    required property real progress
    required property bool isSelected
    required property bool burnInEnabled
    required property string errorText
    required property string errorSummary
    required property string accessibleText
    required property int includeColumnWidth
    required property int burnInColumnWidth
    required property real burnInShare
    readonly property bool isQueued: statusKind === JobListModel.Queued
    readonly property bool isFailed: statusKind === JobListModel.Failed
    readonly property bool isTabStop: ListView.isCurrentItem

    signal includeToggled()
    signal burnInToggled()
    signal removeRequested()
    signal retryRequested()
    signal menuRequested(point place)
    signal focusEntered()

    // A row that has not failed has no menu.
    function requestMenu(place: point) {
        if (isFailed)
            menuRequested(place);
    }

    implicitHeight: 36
    // What has the focus stays a tab stop until it has passed it on; here and in the controls.
    activeFocusOnTab: isTabStop && !isQueued && !isFailed || Window.activeFocusItem === root
    Accessible.role: Accessible.ListItem
    Accessible.name: accessibleText
    Accessible.description: errorSummary
    Accessible.onPressAction: requestMenu(Qt.point(0, height))
    onActiveFocusChanged: if (activeFocus) focusEntered()

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => root.requestMenu(eventPoint.position)
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 5
        anchors.rightMargin: 5
        visible: root.activeFocus
        radius: 6
        color: Theme.accent
        opacity: 0.1
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        anchors.topMargin: 4
        anchors.bottomMargin: 4
        spacing: 8

        CheckMark {
            id: include

            objectName: "includeCheck"
            Layout.preferredWidth: root.includeColumnWidth
            visible: root.isQueued
            focus: root.isQueued
            focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            checked: root.isSelected
            Accessible.name: "Include " + root.name
            onToggled: root.includeToggled()
        }

        BurnInCheck {
            objectName: "burnInCheck"
            // Without its share of the width, its share of the spacing goes too.
            Layout.leftMargin: -8 * (1 - root.burnInShare)
            Layout.preferredWidth: root.burnInColumnWidth * root.burnInShare
            visible: root.isQueued && root.burnInShare > 0
            enabled: root.isSelected
            opacity: root.burnInShare * (root.isSelected ? 1 : 0.4)
            isTabStop: root.isTabStop
            checked: root.burnInEnabled
            name: root.name
            onToggled: root.burnInToggled()
        }

        ColumnLayout {
            spacing: 4

            RowLayout {
                spacing: 8

                Text {
                    id: nameLabel

                    objectName: "name"
                    Layout.fillWidth: true
                    text: root.name
                    textFormat: Text.PlainText
                    font.pixelSize: 12
                    font.weight: Font.Medium
                    color: Theme.primary
                    elide: Text.ElideMiddle

                    HoverTip {
                        text: nameLabel.truncated ? root.name : ""
                    }
                }

                Text {
                    objectName: "status"
                    Layout.maximumWidth: root.width * 0.55
                    elide: Text.ElideRight
                    text: root.statusText
                    textFormat: Text.PlainText
                    font.pixelSize: 11
                    color: root.isFailed ? Theme.failure : Theme.secondary

                    HoverTip {
                        text: root.errorText
                    }
                }

                Text {
                    objectName: "eta"
                    visible: text.length > 0
                    text: root.etaText
                    font.pixelSize: 11
                    color: Theme.secondary
                }
            }

            ThinProgressBar {
                objectName: "bar"
                Layout.fillWidth: true
                visible: !root.isQueued
                value: root.progress
                tint: root.statusKind === JobListModel.Successful ? Theme.success : root.isFailed ? Theme.failure : Theme.accent
                Accessible.ignored: true
            }
        }

        BorderlessButton {
            objectName: "removeButton"
            padding: 3
            visible: root.isQueued
            focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            symbol: "xmark.circle.fill"
            symbolSize: 14
            Accessible.name: "Remove " + root.name
            onClicked: root.removeRequested()
        }

        PushButton {
            objectName: "retryButton"
            visible: root.isFailed
            focus: root.isFailed
            focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            text: "Retry"
            font.pixelSize: 11
            Accessible.name: "Retry " + root.name
            onClicked: root.retryRequested()
        }
    }
}
