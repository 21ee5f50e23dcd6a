import QtQuick

// A window whose stock controls (menus, scroll bars, tool tips) take the theme's colours too.
Window {
    color: Theme.window

    palette {
        window: Theme.window
        windowText: Theme.primary
        base: Theme.base
        alternateBase: Theme.window
        text: Theme.primary
        button: Theme.controlFill
        buttonText: Theme.primary
        brightText: Theme.primary
        placeholderText: Theme.tertiary
        highlight: Theme.accentFill
        highlightedText: Theme.accentText
        link: Theme.accent
        toolTipBase: Theme.controlFill
        toolTipText: Theme.primary
        light: Theme.controlHover
        midlight: Theme.controlHover
        mid: Theme.controlBorder
        dark: Theme.controlBorder
        shadow: Theme.controlBorder
        disabled.windowText: Theme.tertiary
        disabled.text: Theme.tertiary
        disabled.buttonText: Theme.tertiary
    }
}
