import QtQuick
import QtTest
import Marrowcut.Sheets
import Marrowcut.Style
import Marrowcut.Tests

TestCase {
    id: test

    name: "Sheets"
    when: mainWindow.visible

    Window {
        id: mainWindow

        width: 480
        height: 360
        visible: true

        HelpState {
            id: helpState
        }

        Loader {
            id: help

            active: helpState.showHelp

            sourceComponent: HelpView {
                transientParent: mainWindow
                onDismissed: helpState.showHelp = false
            }
        }

        Loader {
            id: about

            active: helpState.showAbout

            sourceComponent: AboutView {
                transientParent: mainWindow
                onDismissed: helpState.showAbout = false
            }
        }

        Loader {
            id: diagnostics

            active: helpState.showDiagnostics

            sourceComponent: DiagnosticsView {
                transientParent: mainWindow
                report: TestDesktop.report
                onDismissed: helpState.showDiagnostics = false
            }
        }

        BurnInMockup {
            id: mockup

            y: 140
            width: 400
        }

        PlainLinkText {
            id: link

            y: 110
            title: "a **plain** title"
            url: "https://example.org/page"
        }

        ReportArea {
            id: area

            width: 300
            height: 100
            text: ""
        }
    }

    SignalSpy {
        id: dismissals

        signalName: "dismissed"
    }

    readonly property var sheets: [
        {tag: "help", place: help, flag: "showHelp", links: 1},
        {tag: "about", place: about, flag: "showAbout", links: 2},
        {tag: "report", place: diagnostics, flag: "showDiagnostics", links: 0}
    ]

    function init() {
        failOnWarning(/./);
    }

    function cleanup() {
        for (const {place, flag} of sheets) {
            helpState[flag] = false;
            verify(!place.item);
        }
        wait(0); // destroys the closed windows
    }

    function show(place: Loader, flag: string): Window {
        verify(!place.item);
        helpState[flag] = true;
        const sheet = place.item;
        tryVerify(() => sheet.visible);
        sheet.requestActivate();
        tryVerify(() => TestDesktop.hasFocus(sheet));
        tryVerify(() => findChild(sheet, "closeButton").activeFocus);
        return sheet;
    }

    function test_closing_data() {
        const ways = {
            "Return": () => keyClick(Qt.Key_Return),
            "Enter": () => keyClick(Qt.Key_Enter),
            "Escape": () => keyClick(Qt.Key_Escape),
            "Space on the button": () => keyClick(Qt.Key_Space),
            "button": sheet => mouseClick(findChild(sheet, "closeButton")),
            "window manager": sheet => sheet.close()
        };
        const rows = [];
        for (const {tag, place, flag} of sheets) {
            for (const way in ways)
                rows.push({tag: `${tag}, ${way}`, place: place, flag: flag, act: ways[way]});
        }
        return rows;
    }

    function test_closing(data) {
        const sheet = show(data.place, data.flag);
        dismissals.target = sheet;
        dismissals.clear();
        data.act(sheet);
        tryVerify(() => !helpState[data.flag]);
        verify(dismissals.count > 0);
        dismissals.target = null;
        show(data.place, data.flag);
    }

    function test_content_data() {
        return sheets;
    }

    // A screen reader says every text as it reads, under one heading.
    function test_content(data) {
        const sheet = show(data.place, data.flag);
        if (data.place === about) {
            const version = findChild(sheet, "versionString");
            verify(/^Version \d+(\.\d+)* \(\d+\)$/.test(version.text), version.text);
            version.text = "Version <b>" + "2.0 ".repeat(40); // shown as it is, wrapped
            verify(version.lineCount > 1 && version.contentWidth <= version.parent.width);
        }
        const roles = [];
        const visit = item => {
            const role = item.Accessible.role;
            roles.push(role);
            if (item instanceof Text && role !== Accessible.NoRole)
                compare(item.Accessible.name, item.text.replace(/\*\*/g, ""));
            else if (item instanceof Text)
                verify(item.wrapMode !== Text.Wrap, item.text); // a paragraph
            Array.from(item.children).forEach(visit);
        };
        visit(sheet.contentItem);
        const count = role => roles.filter(each => each === role).length;
        compare([count(Accessible.Heading), count(Accessible.Link)], [1, data.links]);
    }

    function test_hoverExplainsOneLine() {
        const all = [];
        const search = item => item.explanation ? all.push(item) : Array.from(item.children).forEach(search);
        search(mockup);
        const displays = all.map(line => line.text);
        compare(displays.length, 4);
        const groundOf = line => Array.from(line.children).find(child => child.radius === 3);
        const lightness = place => grabImage(mockup).pixel(place.x, place.y).hslLightness;
        for (let i = 0; i < all.length; ++i) {
            mouseMove(all[i], 4, all[i].height / 2);
            tryCompare(all[i], "isHovering", true);
            compare(all.map(line => line.text), displays.map((text, n) => n === i ? all[i].explanation : text));
            // also where the explanation is the shorter text
            wait(0);
            verify(all[i].isHovering);
            const ground = groundOf(all[i]);
            const belowGround = ground.mapToItem(mockup, 10, ground.height + 1);
            const withShadow = lightness(belowGround);
            mouseMove(link, 1, 1);
            tryCompare(all[i], "isHovering", false);
            verify(withShadow < lightness(belowGround));
        }
        mouseMove(link, 1, 1);
        tryCompare(all[3], "isHovering", false);
        compare(all.map(line => line.text), displays);
    }

    function test_linkOpensOnce() {
        mainWindow.requestActivate();
        tryVerify(() => TestDesktop.hasFocus(mainWindow));
        compare(link.text, "a **plain** title");
        link.forceActiveFocus();
        for (const act of [() => mouseClick(link), () => keyClick(Qt.Key_Space)]) {
            const before = TestDesktop.openedLinks.length;
            act();
            compare(String(TestDesktop.openedLinks.slice(before)), "https://example.org/page");
        }
        const before = TestDesktop.openedLinks.length;
        keyClick(Qt.Key_Return); // belongs to the default button
        keyClick(Qt.Key_Enter);
        compare(TestDesktop.openedLinks.length, before);
    }

    function test_scrollingHelp() {
        const sheet = show(help, "showHelp");
        const content = findChild(sheet, "helpContent");
        const end = content.contentHeight - content.height;
        const places = [[Qt.Key_Up, 0], [Qt.Key_End, end], [Qt.Key_Down, end], [Qt.Key_Home, 0]];
        for (const [key, place] of places) {
            keyClick(key);
            compare(content.contentY, place);
        }
        for (const [forth, back] of [[Qt.Key_Down, Qt.Key_Up], [Qt.Key_PageDown, Qt.Key_PageUp]]) {
            keyClick(forth);
            verify(content.contentY > 0 && content.contentY < content.height);
            keyClick(back);
            compare(content.contentY, 0);
        }
        const credit = findChild(sheet, "creditLine");
        compare(credit.children[0].y, 6); // all of its padding is above
        keyClick(Qt.Key_Tab);
        tryVerify(() => sheet.activeFocusItem.url !== undefined);
        const bottom = sheet.activeFocusItem.mapToItem(sheet.contentItem, 0, sheet.activeFocusItem.height).y;
        verify(bottom > 0 && bottom < findChild(sheet, "closeButton").mapToItem(sheet.contentItem, 0, 0).y);
    }

    function test_newTextKeepsSelectionAndPlace() {
        const lines = "\n" + "line\n".repeat(40);
        const document = findChild(area, "reportText");
        const flickable = findChild(area, "reportPlace");
        area.text = "head 1" + lines + "end";
        waitForRendering(area);
        compare(flickable.contentY, -flickable.topMargin); // opens at the top
        document.select(1, document.length - 3);
        flickable.contentY = 120;
        // longer, shorter, with a sign that the document keeps as another, with signs of two units each
        for (const head of ["head 22", "head 3", "he", "he\u00a0\ud83d\ude00", "he\u00a0\ud83d\ude01"]) {
            const shown = (head + lines).replace("\u00a0", " ");
            area.text = head + lines + "end";
            compare(document.text, shown + "end");
            compare(document.selectedText.replace(/\u2029/g, "\n").replace("\u00a0", " "), shown.slice(1));
            compare(flickable.contentY, 120);
        }
        for (const text of ["other", ""]) {
            area.text = text;
            compare(document.text, text);
        }
    }

    function test_keysInTheReport() {
        const sheet = show(diagnostics, "showDiagnostics");
        const document = findChild(sheet, "reportText");
        const flickable = findChild(sheet, "reportPlace");
        const focus = (key, item) => {
            keyClick(key);
            tryVerify(() => item.activeFocus);
        };
        const copyButton = findChild(sheet, "copyButton");
        focus(Qt.Key_Tab, document);
        keyClick(Qt.Key_End);
        verify(flickable.atYEnd && !flickable.atYBeginning);
        keyClick(Qt.Key_Home);
        verify(flickable.atYBeginning);
        keySequence(StandardKey.SelectAll);
        keySequence(StandardKey.Copy);
        compare(TestDesktop.takeClipboard(), document.text);
        focus(Qt.Key_Tab, copyButton);
        const width = copyButton.width;
        mouseClick(copyButton);
        tryCompare(copyButton, "text", "Copied", 60000); // starts ffmpeg
        compare(copyButton.width, width);
        compare(document.selectedText.length, document.length);
        focus(Qt.Key_Backtab, document);
        keyClick(Qt.Key_Return);
        tryVerify(() => !diagnostics.item);
    }
}
