import QtQuick
import QtQuick.Layouts
import Marrowcut.Main
import Marrowcut.Style

// One job. Of the list's rows, only the current one takes the Tab key, so that Tab leaves a long list; the arrow keys
// go from row to row. What a queued row does not show is made when it shows: every row that comes into view is made anew.
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
    property bool retriedByKey: false // the focus goes to the checkbox, and the ring with it

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

    // What has the focus stays a tab stop until it has passed it on; here and in the controls.
    activeFocusOnTab: isTabStop && !isQueued && !isFailed || Window.activeFocusItem === root
    Accessible.role: Accessible.ListItem
    Accessible.name: accessibleText
    Accessible.description: errorSummary
    Accessible.onPressAction: requestMenu(Qt.point(0, height))
    onActiveFocusChanged: if (activeFocus) focusEntered()
    onIsQueuedChanged: {
        if (isQueued && activeFocus && retriedByKey) {
            include.forceActiveFocus();
            include.focusReason = Qt.TabFocusReason; // also where it had the focus already
        }
        retriedByKey = false;
    }

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

        Loader {
            // Without its share of the width, its share of the spacing goes too.
            Layout.leftMargin: -8 * (1 - root.burnInShare)
            Layout.preferredWidth: root.burnInColumnWidth * root.burnInShare
            active: root.isQueued && root.burnInShare > 0
            visible: active

            // qmllint disable unqualified
            sourceComponent: BurnInCheck {
                objectName: "burnInCheck"
                enabled: root.isSelected
                opacity: root.burnInShare * (root.isSelected ? 1 : 0.4)
                isTabStop: root.isTabStop
                checked: root.burnInEnabled
                name: root.name
                onToggled: root.burnInToggled()
            }
            // qmllint enable unqualified
        }

        Item {
            Layout.fillWidth: true
            implicitHeight: nameLabel.height + (bar.active ? 4 + bar.height : 0)

            Text {
                id: nameLabel

                objectName: "name"
                anchors.left: parent.left
                anchors.right: status.left
                anchors.rightMargin: 8
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
                id: status

                objectName: "status"
                anchors.right: eta.left
                anchors.rightMargin: eta.visible ? 8 : 0
                anchors.verticalCenter: nameLabel.verticalCenter
                width: Math.min(implicitWidth, root.width * 0.55)
                elide: Text.ElideRight
                text: root.statusText
                textFormat: Text.PlainText
                font.pixelSize: 11
                color: root.isFailed ? Theme.failure : Theme.secondary

                Loader {
                    anchors.fill: parent
                    active: root.isFailed

                    // qmllint disable unqualified
                    sourceComponent: HoverTip {
                        text: root.errorText
                    }
                    // qmllint enable unqualified
                }
            }

            Text {
                id: eta

                objectName: "eta"
                anchors.right: parent.right
                anchors.verticalCenter: nameLabel.verticalCenter
                visible: text.length > 0
                text: root.etaText
                font.pixelSize: 11
                color: Theme.secondary
            }

            Loader {
                id: bar

                anchors.left: parent.left
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                active: !root.isQueued

                // qmllint disable unqualified
                sourceComponent: ThinProgressBar {
                    objectName: "bar"
                    value: root.progress
                    tint: root.statusKind === JobListModel.Successful ? Theme.success : root.isFailed ? Theme.failure : Theme.accent
                    Accessible.ignored: true
                }
                // qmllint enable unqualified
            }
        }

        SymbolButton {
            objectName: "removeButton"
            padding: 3
            visible: root.isQueued
            focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            symbol: "xmark.circle.fill"
            symbolSize: 14
            Accessible.name: "Remove " + root.name
            onClicked: root.removeRequested()
        }

        Loader {
            active: root.isFailed
            visible: active
            focus: root.isFailed

            // qmllint disable unqualified
            sourceComponent: PushButton {
                objectName: "retryButton"
                focus: true
                focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                text: "Retry"
                font.pixelSize: 11
                Accessible.name: "Retry " + root.name
                onClicked: {
                    root.retriedByKey = visualFocus;
                    root.retryRequested();
                }
            }
            // qmllint enable unqualified
        }
    }
}
