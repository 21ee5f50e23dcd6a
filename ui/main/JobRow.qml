import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Marrowcut.Main
import Marrowcut.Style

// One job. The arrow keys go from row to row. The Tab key goes through the current row's controls and then leaves the list.
FocusScope {
    id: root

    required property int index
    required property string jobId
    required property string name
    required property string statusLabel
    required property int statusKind
    required property string remainingTime
    required property real progress
    required property bool isSelected
    required property bool burnInEnabled
    required property string statusToolTip
    required property string accessibleName
    required property string accessibleDescription
    required property int includeColumnWidth
    required property int burnInColumnWidth
    required property real burnInShare
    readonly property bool isQueued: statusKind === JobListModel.Queued
    readonly property bool isFailed: statusKind === JobListModel.Failed
    readonly property bool isTabStop: ListView.isCurrentItem
    readonly property Item focusItem: activeFocus ? Window.activeFocusItem : null
    readonly property bool visualFocus: focusItem === root && showsFocus // of the row itself, as a control has it
    readonly property bool hasKeyboardFocus: visualFocus || ((focusItem as T.Control)?.visualFocus ?? false)
    property bool showsFocus: true

    signal includeToggled()
    signal burnInToggled()
    signal removeRequested()
    signal retryRequested()
    signal menuRequested(point place)

    function requestMenu(place: point) {
        if (isFailed) // no other row has a menu
            menuRequested(place);
    }

    // The row itself, none of its controls.
    function takeFocus(reason: int) {
        showsFocus = reason === Qt.TabFocusReason;
        for (const control of [include, burnIn, remove, retry])
            control.focus = false;
        forceActiveFocus(reason);
    }

    function focusRemoveButton() {
        remove.forceActiveFocus(Qt.TabFocusReason);
        remove.focusReason = Qt.TabFocusReason; // also where the view gave it the focus already
    }

    // Kept for reuse, it would stay in the accessibility tree.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true
    // What has the focus stays a tab stop until it has passed it on; here and in the controls.
    activeFocusOnTab: isTabStop || activeFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: accessibleName
    Accessible.description: accessibleDescription
    Accessible.onPressAction: requestMenu(Qt.point(0, height))
    onActiveFocusChanged: if (!activeFocus) showsFocus = true
    onStatusKindChanged: if (activeFocus) takeFocus(hasKeyboardFocus ? Qt.TabFocusReason : Qt.OtherFocusReason)

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => root.requestMenu(eventPoint.position)
    }

    HoverHandler {
        id: hover
    }

    RoundedRectangle {
        anchors.fill: parent
        anchors.leftMargin: 5
        anchors.rightMargin: 5
        visible: hover.hovered || root.hasKeyboardFocus
        radius: 6
        color: root.hasKeyboardFocus ? Theme.accent : Theme.primary
        opacity: root.hasKeyboardFocus ? 0.12 : 0.05
    }

    Divider {
        x: row.x + labels.x
        y: parent.height - height
        width: row.width - labels.x
        visible: root.index < root.ListView.view?.count - 1
    }

    RowLayout {
        id: row

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
            focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            checked: root.isSelected
            Accessible.name: "Include " + root.name
            onToggled: root.includeToggled()
        }

        CheckMark {
            id: burnIn

            objectName: "burnInCheck"
            implicitHeight: 14 + 2 * 3
            indicatorX: 0
            // Without its share of the width, its share of the spacing goes too.
            Layout.leftMargin: -8 * (1 - root.burnInShare)
            Layout.preferredWidth: root.burnInColumnWidth * root.burnInShare
            visible: root.isQueued && root.burnInShare > 0
            enabled: root.isSelected
            opacity: root.burnInShare * (root.isSelected ? 1 : 0.4)
            focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            checked: root.burnInEnabled
            Accessible.name: "Burn in filename and timecode, " + root.name
            onToggled: root.burnInToggled()

            background: RoundedRectangle {
                radius: 4
                color: Qt.alpha(Theme.accent, 0.1)
            }

            ToolTipHandler {
                text: "Burn in filename and timecode"
            }
        }

        Item {
            id: labels

            Layout.fillWidth: true
            implicitHeight: nameLabel.height + (root.isQueued ? 0 : 4 + bar.height)

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
                horizontalAlignment: Text.AlignLeft
                elide: Text.ElideMiddle

                ToolTipHandler {
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
                text: root.statusLabel
                textFormat: Text.PlainText
                font.pixelSize: 11
                color: root.isFailed ? Theme.failure : Theme.secondary

                ToolTipHandler {
                    text: root.statusToolTip
                }
            }

            Text {
                id: eta

                objectName: "eta"
                anchors.right: parent.right
                anchors.verticalCenter: nameLabel.verticalCenter
                visible: text.length > 0
                text: root.remainingTime
                font.pixelSize: 11
                color: Theme.secondary
            }

            ThinProgressBar {
                id: bar

                objectName: "bar"
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                visible: !root.isQueued
                value: root.progress
                tint: root.statusKind === JobListModel.Successful ? Theme.success : root.isFailed ? Theme.failure : Theme.accent
                Accessible.ignored: true
            }
        }

        SymbolButton {
            id: remove

            objectName: "removeButton"
            leftPadding: 3
            visible: root.isQueued
            focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            symbol: "xmark.circle.fill"
            symbolSize: 14
            Accessible.name: "Remove " + root.name
            onClicked: root.removeRequested()

            ToolTipHandler {
                text: "Remove from the list"
            }
        }

        PushButton {
            id: retry

            objectName: "retryButton"
            visible: root.isFailed
            focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
            text: "Retry"
            font.pixelSize: 11
            Accessible.name: "Retry " + root.name
            onClicked: root.retryRequested()
        }
    }
}
