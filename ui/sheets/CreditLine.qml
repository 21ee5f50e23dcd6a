import QtQuick
import Marrowcut.Style

// The author's credit and web site.
Row {
    readonly property bool linkFocused: link.activeFocus

    spacing: 4

    Text {
        text: "by quorvane |"
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        color: Theme.secondary
        font.pixelSize: 11
    }

    PlainLinkText {
        id: link

        objectName: "creditLink"
        title: "quorvane.example"
        url: "https://quorvane.example"
    }
}
