#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

/// windows-1251. Every byte has a character, so decoding never fails.
QString DecodeCp1251(QByteArrayView bytes);
/// What the page lacks goes to `missing`, which gives its replacement, itself in the page; without it "?" stands there.
QByteArray EncodeCp1251(QStringView text, const std::function<QByteArray(char32_t)>& missing = {});
bool FitsCp1251(QStringView text);
