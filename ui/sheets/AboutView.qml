import QtQuick
import Marrowcut.Sheets
import Marrowcut.Style

// The sheet with the application's version and credits.
SheetWindow {
    component Line: Label {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }

    title: "About Marrowcut"
    sheetWidth: 320
    sheetHeight: items.height + 48 + footerHeight

    Column {
        id: items

        x: 24
        y: 24
        width: parent.width - 48
        spacing: 14

        Image {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 64
            height: 64
            sourceSize.width: width
            sourceSize.height: height
            source: Theme.applicationIcon
        }

        Column {
            width: parent.width
            spacing: 2

            Line {
                text: "Marrowcut"
                Accessible.role: Accessible.Heading
                color: Theme.primary
                font.pixelSize: 18
                font.bold: true
            }

            Line {
                objectName: "versionString"
                text: AboutInformation.versionString()
            }
        }

        Column {
            width: parent.width
            spacing: 4

            Line {
                text: "Uses FFmpeg, licensed under LGPL 2.1+."
            }

            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 4

                Line {
                    width: implicitWidth
                    text: "Source available at"
                }

                PlainLinkText {
                    title: "ffmpeg.org"
                    url: "https://ffmpeg.org"
                }
            }
        }

        CreditLine {
            anchors.horizontalCenter: parent.horizontalCenter
        }
    }
}
