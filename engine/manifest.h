#pragma once

#include "engine/model/probed_metadata.h"
#include "engine/output_paths.h"

#include <QString>

#include <optional>

/// manifest.csv: one per output folder, one line per clip that was probed or encoded. UTF-8, line feeds,
/// fields as they are, without quoting.
namespace marrowcut::Manifest
{

/// One line, its line feed included. The probe's five fields are empty without a probe result; the
/// time of processing is taken now.
QString line(const OutputPaths &paths, const std::optional<ProbedMetadata> &meta, const QString &status);

/// Appends a line; a new file gets the header first, in one step. When that fails nothing is reported
/// and no part of the line stays behind.
void append(const QString &path, const QString &line);

} // namespace marrowcut::Manifest
