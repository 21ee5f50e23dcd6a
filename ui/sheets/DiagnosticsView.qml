import QtQuick
import Marrowcut.Sheets
import Marrowcut.Style

// The sheet with the report that a user sends to the author.
SheetWindow {
    id: root

    required property DiagnosticsReport report

    title: "Report a Problem"
    sheetWidth: 480
    sheetHeight: 420
    Component.onCompleted: report.open(root)

    buttons: PushButton {
        objectName: "copyButton"
        text: root.report.copied ? "Copied" : "Copy to Clipboard"
        otherText: "Copy to Clipboard"
        onClicked: root.report.copyToClipboard()
    }

    Column {
        id: heading

        x: 20
        y: 20
        width: parent.width - 40
        spacing: 6

        Label {
            text: "Report a Problem"
            Accessible.role: Accessible.Heading
            color: Theme.primary
            font.pixelSize: Theme.headlineSize
            font.bold: true
        }

        Label {
            width: parent.width
            text: "Copy this and send it to @quorvane (or paste it into an email) if something's not working right."
            wrapMode: Text.Wrap
        }
    }

    ReportArea {
        anchors.left: heading.left
        anchors.right: heading.right
        anchors.top: heading.bottom
        anchors.topMargin: 12
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 16
        text: root.report.reportText
    }
}
