#include "platform/Literals.h"
#include "ui/Gallery.h"
#include "ui/IconLabel.h"
#include "ui/IconTile.h"
#include "ui/Icons.h"
#include "ui/ImageButton.h"
#include "ui/Layout.h"
#include "ui/Theme.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

namespace {

class Looks : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override { Theme::apply(*qApp, scheme()); }
    void TearDown() override { Theme::apply(*qApp, u"light"_s); }
    QString scheme() const { return QString::fromLatin1(GetParam()); }

    static void show(QWidget& window)
    {
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
        QCoreApplication::processEvents();
    }
    static QImage picture(QWidget& widget)
    {
        QCoreApplication::processEvents();
        return widget.grab().toImage();
    }
};

INSTANTIATE_TEST_SUITE_P(Schemes, Looks, testing::Values("light", "dark"),
                         [](const auto& scheme) { return scheme.param; });

// What a person reads has the room it asked for.
void expectNothingClipped(const QWidget& window)
{
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool speaks = qobject_cast<const QLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget) ||
                            qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget);
        if (!speaks || !widget->isVisible() || widget->parentWidget()->inherits("QAbstractScrollArea") ||
            widget->inherits("QToolBarExtension"))
            continue;
        const QSize wanted = widget->minimumSizeHint().expandedTo(QSize(0, 0));
        EXPECT_GE(widget->width(), wanted.width())
            << widget->metaObject()->className() << " " << qPrintable(widget->accessibleName());
        EXPECT_GE(widget->height(), wanted.height())
            << widget->metaObject()->className() << " " << qPrintable(widget->accessibleName());
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (button && !button->text().isEmpty() && !qobject_cast<const QToolButton*>(button)) {
            EXPECT_GE(widget->width(), button->sizeHint().width()) << qPrintable(button->text());
            EXPECT_GE(widget->width(), button->fontMetrics().horizontalAdvance(button->text()))
                << qPrintable(button->text());
        }
    }
}

}

TEST_P(Looks, NoTextIsClippedAtAnySizeOfFont)
{
    const QFont usual = QApplication::font();
    for (const qreal factor : {1.0, 1.6}) {
        QFont font = usual;
        font.setPointSizeF(usual.pointSizeF() * factor);
        QApplication::setFont(font);
        for (const auto& [name, make] : {std::pair{"form", &formGallery}, {"popup", &popupGallery}}) {
            const auto window = make();
            show(*window);
            expectNothingClipped(*window);
            const QString file = u"%1-%2%3"_s.arg(QString::fromLatin1(name), scheme(),
                                                  factor > 1 ? u"-large"_s : QString());
            savePicture(*window, file, 1);
            savePicture(*window, file, 2);
        }
    }
    QApplication::setFont(usual);
}

TEST_P(Looks, IconsAreVisibleAndDifferAtEverySize)
{
    const auto sheet = iconGallery();
    show(*sheet);
    savePicture(*sheet, u"icons-"_s + scheme(), 1);
    const QRgb ground = QApplication::palette().color(QPalette::Base).rgb();
    for (const int side : {16, 24, 48}) {
        QHash<QByteArray, QString> seen;
        for (const QString& name : iconNames()) {
            QImage image(side, side, QImage::Format_ARGB32);
            image.fill(ground);
            {
                QPainter painter(&image);
                icon(name).paint(&painter, image.rect());
            }
            int drawn = 0;
            for (int y = 0; y < side; ++y)
                for (int x = 0; x < side; ++x) drawn += qAbs(qGray(image.pixel(x, y)) - qGray(ground)) > 60;
            EXPECT_GT(drawn, side * side / 40) << qPrintable(name) << " at " << side;
            const QByteArray bits(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
            EXPECT_FALSE(seen.contains(bits)) << qPrintable(name) << " looks like " << qPrintable(seen.value(bits));
            seen.insert(bits, name);
        }
    }
}

TEST_P(Looks, FocusAndDisablingShowOnEveryControl)
{
    const auto make = [](auto* widget) { return std::unique_ptr<QWidget>(widget); };
    auto* button = new ImageButton;
    button->setup(u"edit"_s, u"Изменить"_s, {});
    auto* main = new QPushButton(u"OK"_s);
    main->setDefault(true);
    auto* list = new QListWidget;
    list->addItems({u"Рок"_s, u"Джаз"_s});
    auto* tabs = new QTabBar;
    tabs->addTab(u"Описание"_s);
    tabs->addTab(u"Обложка"_s);
    auto* ticked = new QCheckBox(u"на руках"_s);
    ticked->setChecked(true);
    auto* chosen = new QRadioButton(u"Аудио"_s);
    chosen->setChecked(true);
    auto* box = new QComboBox;
    box->addItem(u"Рок"_s);
    const std::unique_ptr<QWidget> controls[] = {make(button),
                                                 make(main),
                                                 make(new QLineEdit(u"Чайф"_s)),
                                                 make(new QSpinBox),
                                                 make(box),
                                                 make(ticked),
                                                 make(chosen),
                                                 make(list),
                                                 make(tabs),
                                                 make(new QSlider(Qt::Horizontal))};
    for (const auto& control : controls) {
        SCOPED_TRACE(control->metaObject()->className());
        QWidget window;
        QPushButton other(u"Другая"_s);
        QBoxLayout* place = column(&other, control.get());
        window.setLayout(place);
        show(window);
        other.setFocus();
        const QImage plain = picture(*control);
        control->setFocus(Qt::TabFocusReason);
        EXPECT_NE(picture(*control), plain) << "focus";
        other.setFocus();
        control->setEnabled(false);
        EXPECT_NE(picture(*control), plain) << "disabling";
        control->setParent(nullptr);
    }
}

TEST_P(Looks, ATextThatCannotBeEditedIsAsGreyAsALine)
{
    QLineEdit line;
    QPlainTextEdit text;
    const auto ground = [](QWidget& widget) { return picture(widget).pixelColor(widget.rect().center()); };
    for (const bool readOnly : {true, false, true}) {
        line.setReadOnly(readOnly);
        text.setReadOnly(readOnly);
        EXPECT_EQ(ground(text), ground(line)) << readOnly;
    }
    EXPECT_NE(ground(text), QApplication::palette().color(QPalette::Base));
}

TEST_P(Looks, ASignInAnAccentFollowsTheScheme)
{
    IconLabel sign;
    sign.setScale(4);
    sign.setIcon(u"disc-data"_s);
    sign.setAccent(1);
    const auto accents = [&sign] {
        const QImage image = picture(sign);
        const QRgb accent = Theme::accent(1, QApplication::palette()).rgb();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == accent;
        return count;
    };
    EXPECT_GT(accents(), 0);
    Theme::apply(*qApp, scheme() == "dark"_L1 ? u"light"_s : u"dark"_s);
    EXPECT_GT(accents(), 0);
}

TEST_P(Looks, WordsReadOnTheirGrounds)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](qreal part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const auto contrast = [&](const QColor& one, const QColor& other) {
        const qreal a = luminance(one), b = luminance(other);
        return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
    };
    const QPalette palette = QApplication::palette();
    const QColor text = palette.color(QPalette::Text);
    EXPECT_EQ(Theme::dark(palette), scheme() == "dark"_L1);
    for (const QColor& ground : {palette.color(QPalette::Base), palette.color(QPalette::Window), Theme::card(palette),
                                 Theme::selection(palette)}) {
        EXPECT_GT(contrast(text, ground), 7) << qPrintable(ground.name());
        EXPECT_GT(contrast(Theme::subdued(palette), ground), 3.5) << qPrintable(ground.name());
        EXPECT_GT(contrast(Theme::danger(palette), ground), 3.5) << qPrintable(ground.name());
        EXPECT_GT(contrast(palette.color(QPalette::Disabled, QPalette::Text), ground), 2.4)
            << qPrintable(ground.name());
    }
    EXPECT_GT(contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)), 3.5);
    for (int i = 0; i < 3; ++i) EXPECT_GT(contrast(Theme::accent(i, palette), Theme::card(palette)), 3) << i;
}

TEST(Look, FollowsAChangeOfSchemeWhileWindowsStand)
{
    Theme::apply(*qApp, u"light"_s);
    QLabel ground(u"Диск"_s);
    ground.setAutoFillBackground(true);
    ground.show();
    const QRgb before = ground.grab().toImage().pixel(1, 1);
    const QImage sign = icon(u"disc"_s).pixmap(24).toImage();
    Theme::apply(*qApp, u"dark"_s);
    QCoreApplication::processEvents();
    EXPECT_GT(qGray(before), 200);
    EXPECT_LT(qGray(ground.grab().toImage().pixel(1, 1)), 80);
    EXPECT_NE(icon(u"disc"_s).pixmap(24).toImage(), sign);
    Theme::apply(*qApp, u"light"_s);
}

TEST(IconTiles, WantTheirMenuAtTheMouseAndBelowThemselvesForAKey)
{
    IconTile tile;
    tile.setup(u"disc"_s, 0, u"Команды"_s);
    tile.show();
    QList<QPoint> places;
    QObject::connect(&tile, &IconTile::menuWanted, [&](const QPoint& at) { places += tile.mapFromGlobal(at); });
    QTest::mouseClick(&tile, Qt::LeftButton, {}, QPoint(7, 9));
    QTest::mouseClick(&tile, Qt::RightButton, {}, QPoint(7, 9));
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) QTest::keyClick(&tile, key);
    const QPoint below(0, tile.height());
    EXPECT_EQ(places, QList({QPoint(7, 9), below, below}));
}
