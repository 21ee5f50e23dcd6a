#include "platform/monospaced_font.h"

#include <QFile>

#include <fontconfig/fontconfig.h>

#include <memory>

namespace marrowcut
{

QString monospacedFontFile()
{
    using Config = std::unique_ptr<FcConfig, decltype(&FcConfigDestroy)>;
    using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;

    // A configuration of our own: the library never frees its shared one.
    const Config config(FcInitLoadConfigAndFonts(), &FcConfigDestroy);
    const Pattern wanted(
        FcNameParse(reinterpret_cast<const FcChar8 *>("DejaVu Sans Mono,monospace:style=Book")),
        &FcPatternDestroy);
    FcConfigSubstitute(config.get(), wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());

    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(config.get(), wanted.get(), &result), &FcPatternDestroy);
    FcChar8 *file = nullptr; // owned by the match
    if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch)
        return QString();
    return QFile::decodeName(reinterpret_cast<const char *>(file));
}

} // namespace marrowcut
