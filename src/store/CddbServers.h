#pragma once

#include "platform/Profile.h"

#include <QStringList>

/// Hosts of the CDDB network that the user chooses from: seven, the first one by default.
const QStringList& CddbServers();
/// The same as lists show them: "1: gnudb.gnudb.org".
QStringList CddbServerItems();
/// Position of the server that the options name (`ServerCDDB`); 0 when they name none of the seven.
int ChosenCddbServer(const Profile& settings);
