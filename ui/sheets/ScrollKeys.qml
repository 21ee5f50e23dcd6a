import QtQuick

// Scrolls a view with the usual keys, which the focused item forwards here.
Item {
    id: root

    required property Flickable view

    // Stays within the content.
    function scrollTo(y: real) {
        const end = view.contentHeight + view.bottomMargin - view.height;
        view.contentY = Math.max(-view.topMargin, Math.min(y, end));
    }

    function scrollToEnd() {
        scrollTo(view.contentHeight + view.bottomMargin);
    }

    Keys.onPressed: event => {
        const line = 40;
        const page = view.height - line;
        const targets = {
            [Qt.Key_Up]: view.contentY - line,
            [Qt.Key_Down]: view.contentY + line,
            [Qt.Key_PageUp]: view.contentY - page,
            [Qt.Key_PageDown]: view.contentY + page,
            [Qt.Key_Home]: -view.topMargin,
            [Qt.Key_End]: view.contentHeight + view.bottomMargin
        };
        event.accepted = event.key in targets;
        if (event.accepted)
            scrollTo(targets[event.key]);
    }
}
