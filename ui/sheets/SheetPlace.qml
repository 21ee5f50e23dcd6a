import QtQuick
import Marrowcut.Style

// One of this folder's sheets, made when it is first shown.
OnDemand {
    id: root

    required property string name
    required property bool shown
    property var furtherValues: ({})

    signal dismissed()

    file: Qt.resolvedUrl(name + ".qml")
    wanted: shown
    // A window made by a loader is nobody's until told. "shown" comes last: it sets off the rest.
    values: Object.assign({ transientParent: Window.window }, furtherValues, { shown: Qt.binding(() => root.shown) })
    onLoaded: (item as SheetWindow).dismissed.connect(dismissed)
}
