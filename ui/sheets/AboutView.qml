import Marrowcut.Style

// The sheet with the application's version and credits.
SheetWindow {
    title: "About Marrowcut"
    width: 320
    height: contentHeight + footerHeight
    content: AboutContent {}
}
