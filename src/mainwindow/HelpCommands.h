#pragma once

#include "frame/Program.h"

// What the help menu opens on the desktop; what is not there, or does not open, is told.

/// A web page or an address of mail.
void ShowLink(Program& program, const QString& address);
void ShowReadme(Program& program);
void ShowHelp(Program& program);
