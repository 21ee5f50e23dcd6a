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

        Label {
            // Lines of about one length: no single word is left over for the last.
            readonly property real available: parent.width - 2 * 40
            readonly property real lines: Math.ceil(implicitWidth / available)

            Layout.alignment: Qt.AlignHCenter
            Layout.preferredWidth: lines > 1 ? Math.min(available, implicitWidth / lines * 1.1) : implicitWidth
            text: "Drop a large video file (or a folder of them) to make burned-in proxies."
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
        }
    }
}
