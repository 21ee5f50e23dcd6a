#include "platform/resources.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <fontconfig/fontconfig.h>
#include <memory>

namespace marrowcut
{

QString resourceFolder()
{
    // Not by way of QCoreApplication: this must work before an application object exists, too.
    const QFileInfo program(QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget());
    return QDir::cleanPath(program.absolutePath() + QStringLiteral("/../share/marrowcut"));
}

QString versionText(const QString &folder)
{
    const QSettings keys(folder + QStringLiteral("/version.ini"), QSettings::IniFormat);
    const auto textOr = [&keys](const QString &key, const QString &fallback) {
        const QVariant value = keys.value(key); // a value with a comma is read as a list
        return value.typeId() == QMetaType::QString ? value.toString() : fallback;
    };
    return QStringLiteral("%1 (%2)").arg(
        textOr(QStringLiteral("CFBundleShortVersionString"), QStringLiteral("1.0")),
        textOr(QStringLiteral("CFBundleVersion"), QStringLiteral("1")));
}

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

QString applicationId()
{
    return QStringLiteral("example.quorvane.marrowcut");
}

} // namespace marrowcut
