#pragma once

#include "frame/Program.h"

/// Lets the user choose the folder of the local databases, makes new ones there after a question, and uses and keeps it at
/// once. What does not work is told and leaves everything as it was. The new folder, or nothing.
std::optional<QString> ChangeDatabaseFolder(Program& program);
