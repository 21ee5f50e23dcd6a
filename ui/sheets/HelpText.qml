import QtQuick
import Marrowcut.Style

// A paragraph of the help sheet.
Text {
    width: parent?.width ?? 0
    color: Theme.primary
    font.pixelSize: Theme.bodySize
    wrapMode: Text.Wrap
    lineHeight: 1.1
    textFormat: Text.MarkdownText
    Accessible.role: Accessible.StaticText
    Accessible.name: text.replace(/\*\*/g, "")
}
