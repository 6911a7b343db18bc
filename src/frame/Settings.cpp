#include "frame/Settings.h"

#include <algorithm>

static constexpr QStringView Section = u"Option";

bool OptionIsOn(const Program& program, QStringView key) { return program.settings().number(Section, key) == 1; }

QString DefaultDrive(const Program& program) { return program.settings().read(Section, u"Drive", 4).trimmed(); }

std::optional<int> BlinkInterval(const Program& program, QStringView key)
{
    const QString value = program.settings().read(Section, key, 5);
    if (value.isEmpty()) return {};
    const double number = Val(value);
    return number == 1 ? 1 : std::max(0, int(number / 10));
}
