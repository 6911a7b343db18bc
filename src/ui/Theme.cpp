#include "ui/Theme.h"

#include "platform/Literals.h"
#include "ui/Style.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <array>

namespace {

struct Colours {
    QRgb window, text, base, alternate, button, disabled, placeholder, highlight, highlightedText, link, tip;
};
constexpr Colours Light{0xfff3f4f8, 0xff1d2230, 0xffffffff, 0xfff7f8fb, 0xfffdfdfe, 0xff868e9e,
                        0xff7d8596, 0xff2c75dc, 0xffffffff, 0xff1f66cc, 0xffffffff};
constexpr Colours Dark{0xff22252d, 0xffeaecf1, 0xff1b1e25, 0xff20232b, 0xff2e323b, 0xff7d8492,
                       0xff868d9b, 0xff3f86ea, 0xffffffff, 0xff79b0ff, 0xff343944};

// Blue, green and orange that read on a light and on a dark card.
constexpr std::array<QRgb, 3> LightAccents{0xff2c75dc, 0xff1b9a66, 0xffd95f26};
constexpr std::array<QRgb, 3> DarkAccents{0xff5c9dff, 0xff41c48c, 0xfff08a52};

// Families that were drawn for screens and know Cyrillic, best first.
const QStringList& interfaceFamilies()
{
    static const QStringList families{u"Inter"_s,     u"Noto Sans"_s, u"Cantarell"_s,      u"Ubuntu"_s,
                                      u"Open Sans"_s, u"Roboto"_s,    u"Liberation Sans"_s};
    return families;
}

bool isPlaceholder(const QFont& font)
{
    static const QStringList generic{u"sans serif"_s, u"sans"_s,        u"sans-serif"_s,
                                     u"helvetica"_s,  u"dejavu sans"_s, QString()};
    return generic.contains(font.family().toLower());
}

// A desktop that names no font gets the best one installed; what a desktop names stays.
void chooseFont(QApplication& application)
{
    QFont font = application.font();
    if (!isPlaceholder(font)) return;
    for (const QString& family : interfaceFamilies()) {
        if (!QFontDatabase::writingSystems(family).contains(QFontDatabase::Cyrillic)) continue;
        font.setFamilies({family});
        break;
    }
    if (font.pointSizeF() > 0 && font.pointSizeF() < 10) font.setPointSizeF(10);
    application.setFont(font);
}

QFont scaled(const QFont& base, qreal factor)
{
    QFont font = base;
    if (base.pointSizeF() > 0) {
        font.setPointSizeF(base.pointSizeF() * factor);
    } else {
        font.setPixelSize(qMax(1, qRound(base.pixelSize() * factor)));
    }
    return font;
}

}

void Theme::apply(QApplication& application, const QString& scheme)
{
    chooseFont(application);
    application.setStyle(new Style(scheme));
}

bool Theme::dark(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::Window).lightness() < 128;
}

QPalette Theme::palette(const QString& scheme)
{
    const Colours& c = scheme == "dark"_L1 ? Dark : Light;
    const QColor window = QColor::fromRgb(c.window), text = QColor::fromRgb(c.text);
    QPalette palette;
    const auto set = [&](QPalette::ColorRole role, const QColor& colour) { palette.setColor(role, colour); };
    set(QPalette::Window, window);
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        set(role, text);
    set(QPalette::Base, QColor::fromRgb(c.base));
    set(QPalette::AlternateBase, QColor::fromRgb(c.alternate));
    set(QPalette::Button, QColor::fromRgb(c.button));
    set(QPalette::PlaceholderText, QColor::fromRgb(c.placeholder));
    set(QPalette::Highlight, QColor::fromRgb(c.highlight));
    set(QPalette::HighlightedText, QColor::fromRgb(c.highlightedText));
    set(QPalette::Link, QColor::fromRgb(c.link));
    set(QPalette::LinkVisited, QColor::fromRgb(c.link));
    set(QPalette::ToolTipBase, QColor::fromRgb(c.tip));
    set(QPalette::BrightText, Qt::white);
    set(QPalette::Light, mix(window, Qt::white, 0.5));
    set(QPalette::Midlight, mix(window, text, 0.08));
    set(QPalette::Mid, mix(window, text, 0.18));
    set(QPalette::Dark, mix(window, text, 0.32));
    set(QPalette::Shadow, mix(window, Qt::black, 0.6));
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(c.disabled));
    palette.setColor(QPalette::Disabled, QPalette::Base, mix(QColor::fromRgb(c.base), window, 0.6));
    palette.setColor(QPalette::Disabled, QPalette::Button, mix(QColor::fromRgb(c.button), window, 0.6));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, mix(window, text, 0.25));
    return palette;
}

QColor Theme::mix(const QColor& colour, const QColor& other, qreal share)
{
    const auto part = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return QColor(part(colour.red(), other.red()), part(colour.green(), other.green()),
                  part(colour.blue(), other.blue()), part(colour.alpha(), other.alpha()));
}

QColor Theme::accent(int index, const QPalette& palette)
{
    const auto& accents = dark(palette) ? DarkAccents : LightAccents;
    return QColor::fromRgb(accents[static_cast<std::size_t>(index) % accents.size()]);
}

QColor Theme::tint(const QColor& accent, const QPalette& palette)
{
    return mix(card(palette), accent, dark(palette) ? 0.28 : 0.13);
}

QColor Theme::subdued(const QPalette& palette)
{
    return mix(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.36);
}

QColor Theme::danger(const QPalette& palette) { return QColor::fromRgb(dark(palette) ? 0xffff7b72 : 0xffcf2f2f); }

QColor Theme::hairline(const QPalette& palette)
{
    return mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), dark(palette) ? 0.12 : 0.11);
}

QColor Theme::card(const QPalette& palette)
{
    const QColor window = palette.color(QPalette::Window);
    return dark(palette) ? mix(window, Qt::white, 0.045) : mix(palette.color(QPalette::Base), window, 0.1);
}

QColor Theme::selection(const QPalette& palette)
{
    return mix(palette.color(QPalette::Base), palette.color(QPalette::Highlight), dark(palette) ? 0.36 : 0.17);
}

QFont Theme::title(const QFont& base)
{
    QFont font = scaled(base, 1.75);
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont Theme::number(const QFont& base)
{
    QFont font = scaled(base, 2.5);
    font.setWeight(QFont::Light);
    return font;
}

QFont Theme::heading(const QFont& base)
{
    QFont font = base;
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont Theme::caption(const QFont& base) { return scaled(base, 0.9); }
