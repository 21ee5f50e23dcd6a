#include "command_line.h"

#include "engine/video_files.h"

#include <QFileInfo>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace marrowcut::cli
{

namespace
{

const char *const help = R"(Usage: marrowcut-cli [OPTION]... PATH...
       marrowcut-cli [OPTION]... --files-from FILE [PATH]...

Makes a small H.264 proxy of each clip (MXF, MOV, MP4), with file name, source
timecode, elapsed time and file date burned in. The proxies are written to a
folder marrowcut_proxies beside the clips. PATH is a clip or a folder of clips.
A clip that already has a proxy is skipped.

Options:
  --quality PRESET   standard (960 pixels wide), smaller (720) or tiny (480);
                     by default the preset last chosen in the window
  --encoder NAME     auto, libx264, h264_nvenc or h264_qsv; auto, the default,
                     is the best encoder that works on this machine
  --no-burn-in       make proxies without burned-in text
  --recursive        search subfolders too; folders named marrowcut_proxies
                     and links to folders are left out
  --files-from FILE  read more paths from FILE (- for standard input), each
                     ended by a NUL character, as find -print0 writes them
  --quiet            print failures only
  --json             print one JSON object per line and event, for scripts
  --notify           show a desktop notification at the end
  -h, --help         show this help
  -V, --version      show the version; with --verbose also the encoder that
                     --encoder selects on this machine

Exit status:
  0    every clip has its proxy
  1    a clip failed, a named file or folder does not exist or cannot be read,
       or the output could not be written
  2    wrong usage, or no clips in the named folders
  3    ffmpeg or ffprobe is missing, or the named encoder does not work
  130  interrupted

Everything else is in the manual: man marrowcut-cli.
Report problems to marrowcut@quorvane.example.
)";

/// Number of characters to insert, remove or replace to get from one text to the other.
qsizetype editDistance(const QString &from, const QString &to)
{
    std::vector<qsizetype> row(static_cast<std::size_t>(to.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (const QChar character : from) {
        qsizetype diagonal = row[0]++;
        for (std::size_t column = 1; column < row.size(); ++column) {
            const bool same = to[static_cast<qsizetype>(column) - 1] == character;
            const qsizetype best =
                std::min({row[column] + 1, row[column - 1] + 1, diagonal + (same ? 0 : 1)});
            diagonal = std::exchange(row[column], best);
        }
    }
    return row.back();
}

/// The known option that is most like the name, or an empty text.
QString closestOption(const QString &name, const QStringList &knownOptions)
{
    QString closest;
    qsizetype least = std::min<qsizetype>(4, name.size()); // further away is no typing error
    for (const QString &option : knownOptions) {
        const qsizetype distance = editDistance(name, option);
        if (option.size() > 1 && distance < least) {
            closest = option;
            least = distance;
        }
    }
    return closest;
}

} // namespace

QString helpText()
{
    return QString::fromLatin1(help);
}

QString unknownOptionMessage(const QString &argument, const QString &name, const QStringList &knownOptions)
{
    QString message = QStringLiteral("Unknown option '%1'.").arg(argument);
    if (isVideoFileName(argument) || QFileInfo::exists(argument))
        return message + QStringLiteral(" For a file of that name, write './%1'.").arg(argument);
    if (const QString closest = closestOption(name, knownOptions); !closest.isEmpty())
        message += QStringLiteral(" Did you mean '--%1'?").arg(closest);
    return message;
}

} // namespace marrowcut::cli
