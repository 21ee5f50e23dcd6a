import QtQuick
import QtQuick.Layouts
import Marrowcut.Style

// What the window shows while there are no jobs. The target of a drop is the whole window.
Item {
    ColumnLayout {
        anchors.centerIn: parent
        width: parent.width - 2 * 16
        spacing: 16

        Symbol {
            Layout.alignment: Qt.AlignHCenter
            name: "video.badge.waveform"
            size: 48
            color: Theme.secondary
        }

        Text {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignHCenter
            Layout.leftMargin: 40
            Layout.rightMargin: 40
            text: "Drop a large video file (or a folder of them) to make burned-in proxies."
            font.pixelSize: Theme.subheadlineSize
            color: Theme.secondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
