import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// Read-only text that can be selected, with a permanent scroll bar. A new text keeps the selection and the scroll
// position where it equals the old one.
Rectangle {
    id: root

    required property string text

    // Replaces only what differs, so that the rest of the document keeps its selection.
    function show(after: string) {
        const before = area.text;
        const shorter = Math.min(before.length, after.length);
        let start = 0;
        while (start < shorter && before.charAt(start) === after.charAt(start))
            ++start;
        let same = 0; // at the end
        while (same < shorter - start && before.charAt(before.length - 1 - same) === after.charAt(after.length - 1 - same))
            ++same;
        const place = flickable.contentY; // a text area that changes scrolls to its cursor
        area.remove(start, before.length - same);
        area.insert(start, after.slice(start, after.length - same));
        if (before.length === 0)
            area.cursorPosition = 0;
        scrollKeys.scrollTo(place);
    }

    color: Theme.base
    border.color: area.activeFocus ? Theme.accent : Theme.separator
    border.width: area.activeFocus ? 2 : 1
    onTextChanged: show(text)

    Flickable {
        id: flickable

        objectName: "reportPlace"
        anchors.fill: parent
        anchors.margins: 2
        topMargin: 10 // a text area clips at its own padding
        bottomMargin: 10
        contentY: -topMargin
        clip: true
        boundsBehavior: Flickable.StopAtBounds

        ScrollKeys {
            id: scrollKeys

            view: flickable
        }

        T.ScrollBar.vertical: ScrollBar {
            id: bar

            policy: T.ScrollBar.AlwaysOn
        }

        T.TextArea.flickable: T.TextArea {
            id: area

            objectName: "reportText"
            // Newer Qt scrolls by it, and the template alone reports one line.
            implicitHeight: contentHeight + topPadding + bottomPadding
            topPadding: 0
            bottomPadding: 0
            leftPadding: 10
            rightPadding: 10 + bar.width
            readOnly: true
            selectByMouse: true
            persistentSelection: true
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
            Keys.forwardTo: [scrollKeys]
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        }
    }
}
