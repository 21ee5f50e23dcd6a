import QtQuick
import QtTest
import Marrowcut.Sheets
import Marrowcut.Style
import Marrowcut.Tests

TestCase {
    id: test

    name: "Closing"
    when: mainWindow.visible

    ThemedWindow {
        id: mainWindow

        width: 480
        height: 360
        visible: true

        HelpState {
            id: helpState
        }

        HelpView {
            id: help

            transientParent: mainWindow
            shown: helpState.showHelp
            onDismissed: helpState.showHelp = false
        }

        AboutView {
            id: about

            transientParent: mainWindow
            shown: helpState.showAbout
            onDismissed: helpState.showAbout = false
        }

        DiagnosticsView {
            id: diagnostics

            transientParent: mainWindow
            shown: helpState.showDiagnostics
            onDismissed: helpState.showDiagnostics = false
            report: TestDesktop.report
        }
    }

    SignalSpy {
        id: dismissals

        signalName: "dismissed"
    }

    function show(sheet: Window, flag: string) {
        verify(!sheet.visible);
        helpState[flag] = true;
        tryVerify(() => sheet.visible);
        sheet.requestActivate();
        tryVerify(() => TestDesktop.focusWindow() === sheet);
        tryVerify(() => findChild(sheet, "closeButton").activeFocus);
    }

    function test_closing_data() {
        const sheets = [[help, "showHelp"], [about, "showAbout"], [diagnostics, "showDiagnostics"]];
        const ways = {
            "Return": () => keyClick(Qt.Key_Return),
            "Enter": () => keyClick(Qt.Key_Enter),
            "Escape": () => keyClick(Qt.Key_Escape),
            "Space on the button": () => keyClick(Qt.Key_Space),
            "button": sheet => mouseClick(findChild(sheet, "closeButton")),
            "window manager": sheet => sheet.close()
        };
        const rows = [];
        for (const [sheet, flag] of sheets) {
            for (const way in ways)
                rows.push({tag: sheet.title + ", " + way, sheet: sheet, flag: flag, act: ways[way]});
        }
        return rows;
    }

    function test_closing(data) {
        show(data.sheet, data.flag);
        dismissals.target = data.sheet;
        dismissals.clear();
        data.act(data.sheet);
        tryVerify(() => !helpState[data.flag]);
        tryVerify(() => !data.sheet.visible);
        verify(dismissals.count > 0);
        show(data.sheet, data.flag);
        helpState[data.flag] = false;
        verify(!data.sheet.visible);
    }

    function test_sizes() {
        show(help, "showHelp");
        compare([help.width, help.height], [420, 480]);
        helpState.showHelp = false;
        show(about, "showAbout");
        compare(about.width, 320);
        verify(about.height > 200);
        compare(findChild(about, "versionString").text, "Version 1.0 (1)");
        helpState.showAbout = false;
        show(diagnostics, "showDiagnostics");
        compare([diagnostics.width, diagnostics.height], [480, 420]);
        helpState.showDiagnostics = false;
    }

    function test_linkScrollsIntoView() {
        show(help, "showHelp");
        keyClick(Qt.Key_Tab);
        tryVerify(() => help.activeFocusItem.url !== undefined);
        const bottom = help.activeFocusItem.mapToItem(help.contentItem, 0, help.activeFocusItem.height).y;
        verify(bottom > 0 && bottom < findChild(help, "closeButton").mapToItem(help.contentItem, 0, 0).y);
        helpState.showHelp = false;
    }

    function test_copy() {
        show(diagnostics, "showDiagnostics");
        const copyButton = findChild(diagnostics, "copyButton");
        compare(copyButton.text, "Copy to Clipboard");
        mouseClick(copyButton);
        tryCompare(copyButton, "text", "Copied");
        const report = TestDesktop.clipboardText();
        verify(report.startsWith("Marrowcut diagnostic report\n"));
        verify(report.endsWith("\n  Conversion failed!"));
        compare(findChild(diagnostics, "reportText").text, report);
        keyClick(Qt.Key_Return);
        tryVerify(() => !diagnostics.visible);
        show(diagnostics, "showDiagnostics");
        compare(copyButton.text, "Copy to Clipboard");
        helpState.showDiagnostics = false;
    }

    function test_keysInTheReport() {
        show(diagnostics, "showDiagnostics");
        for (const [key, name] of [[Qt.Key_Tab, "reportText"], [Qt.Key_Tab, "copyButton"], [Qt.Key_Backtab, "reportText"]]) {
            keyClick(key);
            tryVerify(() => diagnostics.activeFocusItem.objectName === name);
        }
        keyClick(Qt.Key_Return);
        tryVerify(() => !diagnostics.visible);
    }
}
