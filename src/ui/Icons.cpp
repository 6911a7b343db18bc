#include "ui/Icons.h"

#include "platform/Literals.h"
#include "ui/Theme.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <optional>

// The library is static: without this its resources would not be linked.
static void useIconResources() { Q_INIT_RESOURCE(icons); }

namespace {

constexpr auto Folder = ":/icons/"_L1;

// The colours in which the files are drawn, so that any viewer shows them; here they only mark places.
constexpr char DrawnInk[] = "#3b4354", DrawnAccent[] = "#2c75dc", DrawnTint[] = "#dbe7f9";

struct IconColours {
    QColor ink, accent, tint;
};

class PaletteIcon : public QIconEngine {
public:
    PaletteIcon(const QString& name, const QColor& accent, std::optional<int> catalogue)
        : m_name(name), m_accent(accent), m_catalogue(catalogue)
    {
        QFile file(Folder + name + ".svg"_L1);
        if (file.open(QIODevice::ReadOnly)) m_drawing = file.readAll();
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const int side = qMin(rect.width(), rect.height());
        QRectF square(0, 0, side, side);
        square.moveCenter(QRectF(rect).center());
        QSvgRenderer(coloured(colours(mode))).render(painter, square);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        const IconColours c = colours(mode);
        const QString key = u"vinora/%1/%2x%3/%4/%5/%6"_s.arg(m_name)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(c.ink.name(), c.accent.name(), c.tint.name());
        QPixmap picture;
        if (QPixmapCache::find(key, &picture)) return picture;
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        {
            QPainter painter(&picture);
            paint(&painter, QRect(QPoint(), size), mode, state);
        }
        QPixmapCache::insert(key, picture);
        return picture;
    }

    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    QIconEngine* clone() const override { return new PaletteIcon(*this); }
    QString iconName() override { return m_name; }
    bool isNull() override { return m_drawing.isEmpty(); }

private:
    IconColours colours(QIcon::Mode mode) const
    {
        const QPalette palette = QGuiApplication::palette();
        const QColor window = palette.color(QPalette::Active, QPalette::Window);
        const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
        const bool dark = Theme::dark(palette);
        if (mode == QIcon::Disabled) {
            const QColor grey = Theme::mix(window, text, dark ? 0.36 : 0.38);
            return {grey, grey, Theme::mix(window, text, 0.08)};
        }
        const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
        if (mode == QIcon::Selected) {
            const QColor on = palette.color(QPalette::Active, QPalette::HighlightedText);
            return {on, on, Theme::mix(highlight, on, 0.22)};
        }
        QColor accent = m_accent.isValid() ? m_accent : dark ? Theme::mix(highlight, Qt::white, 0.25) : highlight;
        if (m_catalogue) accent = Theme::accent(*m_catalogue, palette);
        return {Theme::mix(text, window, 0.16), accent, Theme::mix(Theme::card(palette), accent, dark ? 0.3 : 0.17)};
    }

    QByteArray coloured(const IconColours& c) const
    {
        QByteArray drawing = m_drawing;
        // By way of names, since a colour of the palette may be one of those drawn.
        drawing.replace(DrawnInk, "{ink}").replace(DrawnAccent, "{accent}").replace(DrawnTint, "{tint}");
        return drawing.replace("{ink}", c.ink.name().toLatin1())
            .replace("{accent}", c.accent.name().toLatin1())
            .replace("{tint}", c.tint.name().toLatin1());
    }

    QString m_name;
    QColor m_accent;
    std::optional<int> m_catalogue;
    QByteArray m_drawing;
};

QIcon make(const QString& name, const QColor& accent, std::optional<int> catalogue)
{
    useIconResources();
    Q_ASSERT_X(name.isEmpty() || QFile::exists(Folder + name + ".svg"_L1), "icon", qPrintable(name));
    return name.isEmpty() ? QIcon() : QIcon(new PaletteIcon(name, accent, catalogue));
}

}

QIcon icon(const QString& name, const QColor& accent) { return make(name, accent, {}); }
QIcon catalogueIcon(const QString& name, int accent) { return make(name, {}, accent); }

QStringList iconNames()
{
    useIconResources();
    QStringList names = QDir(Folder).entryList({u"*.svg"_s}, QDir::Files, QDir::Name);
    for (QString& name : names) name.chop(4);
    return names;
}
