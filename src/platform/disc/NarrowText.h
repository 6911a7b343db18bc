#pragma once

#include <QByteArrayView>
#include <QString>

/// Text of a medium that does not say how it is encoded: UTF-8 where it is valid as such, else code page 866, in which
/// Russian discs of that time were written.
QString DecodeNarrow(QByteArrayView bytes);
