pragma Singleton

import QtQuick
import Marrowcut.Style

// The roles that views draw with. Every role meant for text has a contrast of 4.5:1 on window, base and controlFill, and
// accentText on accentFill. The accent is the desktop's, where it has one.
QtObject {
    readonly property bool dark: DesktopAppearance.dark
    readonly property url applicationIcon: Qt.resolvedUrl("icons/marrowcut.svg")

    // text and symbols
    readonly property color primary: dark ? "#f2f2f4" : "#1d1d20"
    readonly property color secondary: dark ? "#b0b0b9" : "#5a5b63"
    readonly property color tertiary: dark ? "#9c9ca6" : "#686972"
    readonly property color success: dark ? "#4cc47a" : "#1b7a37"
    readonly property color failure: dark ? "#ff8078" : "#c0261c"
    readonly property color accent: legibleAccent(dark ? controlFill : window) ?? (dark ? "#6db0ff" : "#0a5dcc") // also lines and bars

    // backgrounds
    readonly property color window: dark ? "#202023" : "#f5f5f7"
    readonly property color base: dark ? "#18181a" : "#ffffff"
    readonly property color accentFill: legibleAccent(accentText) ?? (dark ? "#2367cf" : "#0a5dcc")
    readonly property color accentText: "#ffffff"

    // lines and controls
    readonly property color separator: dark ? "#3a3a3f" : "#dadade"
    readonly property color controlFill: dark ? "#333338" : "#ffffff"
    readonly property color controlBorder: dark ? "#505058" : "#c2c2ca"
    readonly property color outline: dark ? "#8b8b94" : "#7c7c84" // 3:1 on every background, also on track
    readonly property color controlHover: dark ? "#3e3e44" : "#f0f0f3"
    readonly property color controlPressed: dark ? "#2a2a2e" : "#e4e4e9"
    readonly property color track: dark ? "#3a3a40" : "#dedee3"
    readonly property color segmentFill: dark ? "#5c5c64" : "#ffffff"

    // sizes of text, in logical pixels
    readonly property int bodySize: 13
    readonly property int headlineSize: 13 // bold
    readonly property string monospaced: DesktopAppearance.monospaced

    // The desktop's accent, legible beside the other colour; null where the desktop has none.
    function legibleAccent(other: color): var {
        const accent = DesktopAppearance.accent;
        return accent.valid ? DesktopAppearance.legible(accent, other) : null;
    }
}
