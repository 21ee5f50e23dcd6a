import Marrowcut.Style

// Marks the keyboard focus around its parent. The gap keeps the ring visible around a button in the accent colour.
RoundedRectangle {
    property real innerRadius: 5

    anchors.fill: parent
    anchors.margins: -4
    radius: innerRadius + 4
    borderColor: Theme.accent
    borderWidth: 2
}
