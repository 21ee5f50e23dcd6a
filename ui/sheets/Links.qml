pragma Singleton

import QtQuick

// Every address that the application links to.
QtObject {
    readonly property string authorCredit: "by quorvane |"
    readonly property string authorName: "quorvane.example"
    readonly property url author: "https://quorvane.example"
    readonly property string ffmpegName: "ffmpeg.org"
    readonly property url ffmpeg: "https://ffmpeg.org"
}
