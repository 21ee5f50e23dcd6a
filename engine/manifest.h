#pragma once

#include "engine/model/output_paths.h"
#include "media/probe.h"

#include <QString>

#include <optional>

/// manifest.csv: one per output folder, one line per clip that was probed or encoded. UTF-8, line feeds,
/// fields unchanged, without quoting.
namespace marrowcut::Manifest
{

/// One line, its line feed included. The probe's five fields are empty without a probe result; the
/// time of processing is taken now.
QString line(const OutputPaths &paths, const std::optional<media::ProbedMetadata> &meta,
             const QString &status);

/// Appends a line; a manifest that is new or empty gets the header first. Any number of processes may do so
/// at once: header and line are written under a lock that network file systems carry. Gives up silently
/// after ten seconds of waiting or on an error, and leaves no part of the line behind. A link and anything
/// but a regular file are never written to.
void append(const QString &path, const QString &line);

} // namespace marrowcut::Manifest
