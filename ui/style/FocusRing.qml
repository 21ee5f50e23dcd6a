import Marrowcut.Style

// The mark of the keyboard focus around its parent. The ground shows in between, so that the ring can be told from a
// control in the accent colour.
RoundedRectangle {
    property real innerRadius: 5

    anchors.fill: parent
    anchors.margins: -4
    radius: innerRadius + 4
    borderColor: Theme.accent
    borderWidth: 2
}
