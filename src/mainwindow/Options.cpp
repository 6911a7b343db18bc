#include "mainwindow/Options.h"

#include "platform/Literals.h"

static constexpr QStringView Section = u"Option";

std::optional<bool> ReadFlag(const Profile& settings, QStringView key)
{
    if (!settings.has(Section, key)) return {};
    return settings.number(Section, key) == 1;
}

void WriteFlag(const Profile& settings, QStringView key, bool on)
{
    settings.write(Section, key, on ? u"1"_s : u"0"_s);
}

std::optional<Blinking> ReadBlinking(const Profile& settings, QStringView key)
{
    const QString stored = settings.read(Section, key, 5);
    if (stored.isEmpty()) return {};
    const double value = Val(stored);
    if (value == 1) return Blinking{.steady = true};
    return Blinking{.hundreds = BoundedInt(value / 100, 0, MostHundreds)};
}

void WriteBlinking(const Profile& settings, QStringView key, const Blinking& blinking)
{
    settings.write(Section, key, blinking.steady ? u"1"_s : QString::number(blinking.hundreds * 100));
}

QString StepTimeout(const QString& text, int direction)
{
    constexpr int lowest = 10, highest = 99;
    if (text < u"10"_s) return u"10"_s;
    return QString::number(BoundedInt(Val(text) + direction, lowest, highest));
}

static void forget(const Profile& settings, std::initializer_list<QStringView> keys)
{
    for (const QStringView key : keys) settings.write(u"Sorted", key, u"0"_s);
}

void ForgetCatalogueOrders(const Profile& settings)
{
    forget(settings, {u"PCCDsorted", u"PCCDsortedDESC", u"ADCDsorted", u"ADCDsortedDESC"});
}

void ForgetDueOrder(const Profile& settings) { forget(settings, {u"DUEsorted", u"DUEsortedDESC", u"DUEsortedDisk"}); }
