import QtQuick

// Makes what a file describes when it is first wanted, and keeps it. The values are those of its properties, given once;
// Qt.binding makes them follow.
Loader {
    id: root

    required property url file
    required property var values
    required property bool wanted

    function make() {
        if (wanted && status === Loader.Null)
            setSource(file, values);
    }

    onWantedChanged: make()
    Component.onCompleted: make()
}
