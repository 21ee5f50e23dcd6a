import QtQuick
import Marrowcut.Style

// The author's credit and web site.
Row {
    readonly property bool linkFocused: link.activeFocus

    spacing: 4

    Text {
        anchors.verticalCenter: parent.verticalCenter
        text: Links.authorCredit
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        color: Theme.secondary
        font.pixelSize: 11
    }

    PlainLinkText {
        id: link

        anchors.verticalCenter: parent.verticalCenter
        title: Links.authorName
        url: Links.author
    }
}
