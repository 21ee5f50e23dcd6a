import QtQuick

// A text that screen readers read.
Text {
    color: Theme.secondary
    font.pixelSize: 11
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
