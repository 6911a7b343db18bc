#pragma once

#include <QString>

using namespace Qt::StringLiterals;
