import QtQuick
import Marrowcut.Sheets
import Marrowcut.Style

// What the about sheet shows.
Item {
    implicitHeight: items.height + 48

    Column {
        id: items

        x: 24
        y: 24
        width: parent.width - 48
        spacing: 14

        ApplicationIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            size: 64
        }

        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 2

            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                text: "Marrowcut"
                Accessible.role: Accessible.Heading
                Accessible.name: text
                color: Theme.primary
                font.pixelSize: 18
                font.bold: true
            }

            Text {
                objectName: "versionString"
                anchors.horizontalCenter: parent.horizontalCenter
                text: AboutInformation.versionString()
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                color: Theme.secondary
                font.pixelSize: 11
            }
        }

        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 4

            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                text: "Uses FFmpeg, licensed under LGPL 2.1+."
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                color: Theme.secondary
                font.pixelSize: 11
            }

            Row {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 4

                Text {
                    text: "Source available at"
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                    color: Theme.secondary
                    font.pixelSize: 11
                }

                PlainLinkText {
                    title: Links.ffmpegName
                    url: Links.ffmpeg
                }
            }
        }

        CreditLine {
            anchors.horizontalCenter: parent.horizontalCenter
        }
    }
}
