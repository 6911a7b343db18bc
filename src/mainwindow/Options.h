#pragma once

#include "platform/Profile.h"

#include <QStringList>
#include <optional>

// What the options dialog reads and writes in section "Option" of the settings.

/// A tick, or the second one of two choices; nothing when the key is missing.
std::optional<bool> ReadFlag(const Profile& settings, QStringView key);
void WriteFlag(const Profile& settings, QStringView key, bool on);

/// How a sign blinks: "1" for a steady one, else hundreds of milliseconds, written as milliseconds.
struct Blinking {
    bool steady = false;
    int hundreds = 0; ///< 0 to MostHundreds; 0 for a steady one

    bool operator==(const Blinking&) const = default;
};
inline constexpr int MostHundreds = 99; ///< readers take four digits
std::optional<Blinking> ReadBlinking(const Profile& settings, QStringView key);
void WriteBlinking(const Profile& settings, QStringView key, const Blinking& blinking);

/// Seconds as two digits between "10" and "99", one more or less; what sorts below "10" as text becomes "10".
QString StepTimeout(const QString& text, int direction);

/// Sort orders that are no longer kept start anew. The DVD catalogue's has always stayed, and stays.
void ForgetCatalogueOrders(const Profile& settings);
void ForgetDueOrder(const Profile& settings);
