import QtQuick
import Marrowcut.Style

// The author's credit and web site.
Row {
    readonly property bool linkFocused: link.activeFocus

    spacing: 4

    Label {
        text: "by quorvane |"
    }

    PlainLinkText {
        id: link

        objectName: "creditLink"
        title: "quorvane.example"
        url: "https://quorvane.example"
    }
}
