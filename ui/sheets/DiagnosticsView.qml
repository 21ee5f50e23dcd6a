import Marrowcut.Sheets
import Marrowcut.Style

// The sheet with the report that a user sends to the author.
SheetWindow {
    id: root

    required property DiagnosticsReport report

    title: "Report a Problem"
    width: 480
    height: 420
    onShownChanged: if (shown) report.open()
    content: DiagnosticsContent {
        report: root.report // qmllint disable unqualified
    }

    PushButton {
        objectName: "copyButton"
        text: root.report.copied ? "Copied" : "Copy to Clipboard"
        onClicked: root.report.copyToClipboard()
    }
}
