import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// What can be done with the error of a failed row: the list's rows share one menu.
ThemedMenu {
    id: root

    property string jobId

    signal copyRequested(string jobId)

    function openFor(row: JobRow, place: point) {
        jobId = row.jobId;
        popup(row, place);
        currentIndex = 0;
    }

    objectName: "errorMenu"

    T.Action {
        text: "Copy Error"
        onTriggered: root.copyRequested(root.jobId)
    }
}
