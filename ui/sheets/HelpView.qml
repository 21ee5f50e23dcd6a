import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// The sheet that explains the application.
SheetWindow {
    component Paragraph: Label {
        width: parent?.width ?? 0
        color: Theme.primary
        font.pixelSize: Theme.bodySize
        wrapMode: Text.Wrap
        lineHeight: 1.1
        textFormat: Text.MarkdownText
        Accessible.name: text.replace(/\*\*/g, "")
    }

    title: "Marrowcut Help"
    sheetWidth: 420
    sheetHeight: 480
    keyTarget: scrollKeys

    ScrollKeys {
        id: scrollKeys

        view: content
    }

    Flickable {
        id: content

        objectName: "helpContent"
        anchors.fill: parent
        clip: true
        contentWidth: width
        contentHeight: paragraphs.height + 48
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: ScrollBar {
            policy: T.ScrollBar.AlwaysOn
        }

        Column {
            id: paragraphs

            x: 24
            y: 24
            width: parent.width - 48
            spacing: 14

            Paragraph {
                text: "How Marrowcut works"
                Accessible.role: Accessible.Heading
                font.pixelSize: Theme.headlineSize
                font.bold: true
            }

            Paragraph {
                text: "Drop camera footage (MXF, MOV, MP4) onto the window. You can drop one file or a whole folder at a time."
            }

            Paragraph {
                text: "Marrowcut will create smaller versions of each file (called a \"proxy\") with the filename and timecode burned into the top right of the picture."
            }

            BurnInMockup {
                width: parent.width
            }

            Paragraph {
                text: "(this is a mockup; text is much smaller on the actual video)"
                color: Theme.secondary
                font.pixelSize: 10
                horizontalAlignment: Text.AlignHCenter
            }

            Paragraph {
                text: "**The smaller size and simple format** is more compatible for uploading to a transcription service like Descript, Trint, Rev, etc. From there, you can make a rough edit in that service. When you're ready to do a proper edit in an NLE (Premiere, Final Cut, Resolve, etc), just swap the original files in. Most NLEs should be able to do this with a few clicks."
            }

            Paragraph {
                text: "**The burned-in part** is a failsafe. If you can't sync automatically for some reason, the timestamps are burned into the video so you can re-construct your edits manually."
            }

            Paragraph {
                text: "Files are always output to a \"marrowcut_proxies\" folder right next to the source files."
            }

            CreditLine {
                objectName: "creditLine"
                topPadding: 6
                onLinkFocusedChanged: if (linkFocused) scrollKeys.scrollToEnd()
            }
        }
    }
}
