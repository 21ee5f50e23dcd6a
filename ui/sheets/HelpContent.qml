import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// What the help sheet shows.
Flickable {
    id: root

    objectName: "helpContent"
    clip: true
    contentWidth: width
    contentHeight: paragraphs.height + 48
    boundsBehavior: Flickable.StopAtBounds
    Keys.forwardTo: [scrollKeys]

    ScrollKeys {
        id: scrollKeys

        view: root
    }

    T.ScrollBar.vertical: ScrollBar {
        policy: T.ScrollBar.AlwaysOn
    }

    Column {
        id: paragraphs

        x: 24
        y: 24
        width: parent.width - 48
        spacing: 14

        HelpText {
            text: "How Marrowcut works"
            Accessible.role: Accessible.Heading
            font.pixelSize: Theme.headlineSize
            font.bold: true
        }

        HelpText {
            text: "Drop camera footage (MXF, MOV, MP4) onto the window. You can drop one file or a whole folder at a time."
        }

        HelpText {
            text: "Marrowcut will create smaller versions of each file (called a \"proxy\") with the filename and timecode burned into the top right of the picture."
        }

        BurnInMockup {
            width: parent.width
        }

        HelpText {
            text: "(this is a mockup; text is much smaller on the actual video)"
            color: Theme.secondary
            font.pixelSize: 10
            horizontalAlignment: Text.AlignHCenter
        }

        HelpText {
            text: "**The smaller size and simple format** is more compatible for uploading to a transcription service like Descript, Trint, Rev, etc. From there, you can make a rough edit in that service. When you're ready to do a proper edit in an NLE (Premiere, Final Cut, Resolve, etc), just swap the original files in. Most NLEs should be able to do this with a few clicks."
        }

        HelpText {
            text: "**The burned-in part** is a failsafe. If you can't sync automatically for some reason, the timestamps are burned into the video so you can re-construct your edits manually."
        }

        HelpText {
            text: "Files are always output to a \"marrowcut_proxies\" folder right next to the source files."
        }

        CreditLine {
            topPadding: 6
            onLinkFocusedChanged: if (linkFocused) scrollKeys.scrollToEnd()
        }
    }
}
