import QtQuick
import Marrowcut.Style

// One row's switch for the text in the video: a checkbox at the leading edge of a tinted column.
CheckMark {
    id: root

    implicitHeight: 14 + 2 * 3
    indicatorX: 0

    background: RoundedRectangle {
        radius: 4
        color: Qt.alpha(Theme.accent, 0.1)
    }

    HoverTip {
        text: "Burn in filename and timecode"
    }
}
