import QtQuick
import Marrowcut.Style

// A frame of a proxy with its burned-in lines, all sizes in proportion to its width.
Item {
    id: root

    readonly property real w: width

    implicitHeight: width * 9 / 16

    // A rounded rectangle with a gradient has jagged corners in software.
    Canvas {
        anchors.fill: parent
        onPaint: {
            const context = getContext("2d");
            const gradient = context.createLinearGradient(0, 0, 0, height);
            gradient.addColorStop(0, "#595959");
            gradient.addColorStop(1, "#333333");
            context.reset();
            context.fillStyle = gradient;
            context.roundedRect(0, 0, width, height, 6, 6);
            context.fill();
        }
    }

    Column {
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: root.w / 40
        spacing: Math.max(1, root.w / 160)

        HoverableMockupLine {
            anchors.right: parent.right
            display: "CAM001.MXF"
            explanation: "filename"
            size: root.w / 16
            weight: Font.Bold
        }

        HoverableMockupLine {
            anchors.right: parent.right
            display: "SOURCE TC  01:12:04:18"
            explanation: "internal camera timecode"
            size: root.w / 22
            weight: Font.DemiBold
        }

        HoverableMockupLine {
            anchors.right: parent.right
            display: "CLIP ELAPSED  00:00:14:02"
            explanation: "time elapsed in this clip"
            size: root.w / 22
            weight: Font.DemiBold
        }

        HoverableMockupLine {
            anchors.right: parent.right
            display: "FILE DATE  2026-03-11 09:41:02"
            explanation: "time/date file was created"
            size: root.w / 34
            weight: Font.Normal
        }
    }

    PulsingHint {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.w / 20
        size: root.w / 26
    }
}
