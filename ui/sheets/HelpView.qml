import Marrowcut.Style

// The sheet that explains the application.
SheetWindow {
    title: "Marrowcut Help"
    width: 420
    height: 480
    content: HelpContent {}
}
