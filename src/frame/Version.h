#pragma once

#include "platform/Literals.h"

#include <QString>

/// Where the makers read their post.
inline const QString SupportAddress = u"support@vinora.example"_s;

// `version` is "1.0.0": major, minor, revision.

/// "vinora 1.0"
QString ProgramTitle(const QString& version);
/// "vinora 1.0 build 0"
QString VersionLine(const QString& version);
