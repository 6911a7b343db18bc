#pragma once

#include "platform/Profile.h"

#include <QStringList>

/// Names of the user's query shortcuts in query.ini, in their order.
QStringList QueryShortcutNames(const Profile& queries);
