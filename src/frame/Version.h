#pragma once

#include <QString>

// `version` is "1.0.0": major, minor, revision.

/// "vinora 1.0"
QString ProgramTitle(const QString& version);
/// "vinora 1.0 build 0"
QString VersionLine(const QString& version);
