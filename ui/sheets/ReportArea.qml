import QtQuick
import QtQuick.Controls
import Marrowcut.Style

// Plain text to read and select, scrolling with a bar that is always shown.
Rectangle {
    id: root

    required property string text

    color: Theme.base
    border.color: area.activeFocus ? Theme.accent : Theme.separator

    Flickable {
        anchors.fill: parent
        anchors.margins: 1
        clip: true
        boundsBehavior: Flickable.StopAtBounds

        ScrollBar.vertical: ScrollBar {
            id: bar

            policy: ScrollBar.AlwaysOn
        }

        TextArea.flickable: TextArea {
            id: area

            objectName: "reportText"
            padding: 12
            rightPadding: 12 + bar.width
            readOnly: true
            selectByMouse: true
            text: root.text
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            color: Theme.primary
            selectionColor: Theme.accentFill
            selectedTextColor: Theme.accentText
            font.family: Theme.monospaced
            font.pixelSize: 11
            background: null
            Accessible.name: "Report"
            // A text area would take Return and Tab for itself.
            Keys.priority: Keys.BeforeItem
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        }
    }
}
