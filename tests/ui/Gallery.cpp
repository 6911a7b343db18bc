#include "ui/Gallery.h"

#include "platform/Literals.h"
#include "ui/Icons.h"
#include "ui/ImageButton.h"
#include "ui/Layout.h"
#include "ui/Lettering.h"
#include "ui/Theme.h"

#include <QtWidgets>

namespace {

ImageButton* button(const QString& iconName, const QString& text, const QKeySequence& keys = {})
{
    auto* button = new ImageButton;
    button->setup(iconName, text, text.isEmpty() ? u"Подсказка"_s : text, keys);
    return button;
}

QLabel* quiet(const QString& text) { return lettered(label(text), Lettering::Caption); }

}

std::unique_ptr<QWidget> formGallery()
{
    auto form = std::make_unique<QDialog>();
    form->setWindowTitle(u"Добавление Аудио диска"_s);
    auto* name = new QLineEdit(u"Оранжевое настроение"_s);
    auto* album = new QLineEdit;
    album->setPlaceholderText(u"Название альбома"_s);
    auto* locked = new QLineEdit(u"Только для чтения"_s);
    locked->setReadOnly(true);
    auto* off = new QLineEdit(u"Недоступно"_s);
    off->setEnabled(false);
    auto* year = new QSpinBox;
    year->setRange(1900, 9999);
    year->setValue(2003);
    auto* date = new QDateEdit(QDate(2003, 3, 1));
    date->setCalendarPopup(true);
    auto* genre = new QComboBox;
    genre->addItems({u"Рок"_s, u"Джаз"_s, u"Классика"_s});
    auto* style = new QComboBox;
    style->setEditable(true);
    style->addItem(u"по группе/исполнителю"_s);
    auto* drive = new QComboBox;
    drive->addItem(u"---"_s);
    drive->setEnabled(false);
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setValue(40);
    auto* progress = new QProgressBar;
    progress->setValue(62);

    auto* audio = new QRadioButton(u"&Аудио диски"_s);
    audio->setChecked(true);
    auto* dvd = new QRadioButton(u"&DVD диски"_s);
    dvd->setEnabled(false);
    auto* lent = new QCheckBox(u"на &руках"_s);
    lent->setChecked(true);
    auto* reversed = new QCheckBox(u"в &обратном порядке"_s);
    auto* partly = new QCheckBox(u"частично"_s);
    partly->setTristate();
    partly->setCheckState(Qt::PartiallyChecked);
    auto* dead = new QCheckBox(u"недоступно"_s);
    dead->setChecked(true);
    dead->setEnabled(false);

    auto* note = new QPlainTextEdit;
    note->setPlaceholderText(u"Примечание"_s);
    note->setMaximumHeight(note->fontMetrics().height() * 4);
    auto* tabs = new QTabWidget;
    tabs->addTab(panel(column(note, row(label(u"Громкость:"_s, slider), slider),
                              row(label(u"Скорость:"_s, progress), progress))),
                 u"Описание"_s);
    tabs->addTab(panel(column(quiet(u"Обложка не выбрана"_s))), icon(u"cover"_s), u"Обложка"_s);

    auto* ok = button(u"ok"_s, u"OK"_s);
    ok->setDefault(true);
    auto* refused = button(u"delete"_s, u"Удалить"_s);
    refused->setEnabled(false);
    form->setLayout(column(
        row(column(grid({{label(u"&Название:"_s, name), name},
                         {label(u"&Альбом:"_s, album), album},
                         {label(u"&Место:"_s, locked), row(locked, off)},
                         {label(u"&Год:"_s, year), row(year, label(u"Добавлен:"_s, date), date, stretch)},
                         {label(u"&Жанр:"_s, genre), row(genre, drive)},
                         {label(u"&Порядок:"_s, style), style}}),
                   stretch),
            group(u"Тип диска"_s, column(audio, new QRadioButton(u"&Компьютерные диски"_s), dvd, lent, reversed, partly,
                                         dead, stretch))),
        tabs,
        row(button(u"add"_s, u"&Добавить"_s, QKeySequence(Qt::Key_Insert)), button(u"edit"_s, u"&Изменить"_s), refused,
            button(u"search"_s, {}), button(u"cover-delete"_s, {}), stretch, ok, button(u"cancel"_s, u"Отмена"_s))));
    return form;
}

std::unique_ptr<QWidget> popupGallery()
{
    auto window = std::make_unique<QWidget>();
    auto* menu = new QMenu;
    menu->addAction(icon(u"disc-audio"_s), u"&Аудио диски"_s)->setShortcut(QKeySequence(u"Ctrl+1"_s));
    QAction* current = menu->addAction(icon(u"disc-data"_s), u"&Компьютерные диски"_s);
    current->setShortcut(QKeySequence(u"Ctrl+Shift+2"_s));
    menu->addAction(icon(u"disc-dvd"_s), u"DVD диски"_s)->setEnabled(false);
    menu->addSeparator();
    menu->addMenu(u"&Добавить"_s)->addAction(u"Аудио диск"_s);
    QAction* shown = menu->addAction(u"Панель"_s);
    shown->setCheckable(true);
    shown->setChecked(true);
    menu->setWindowFlags(Qt::Widget); // stands in the window for its picture
    menu->setActiveAction(current);
    auto* box = new QMessageBox(QMessageBox::Warning, {}, u"Вы действительно хотите удалить диск № 7?"_s,
                                QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    box->setWindowFlags(Qt::Widget);
    auto* days = new QCalendarWidget;
    days->setSelectedDate(QDate(2003, 11, 14));
    auto* busy = new QProgressBar;
    busy->setRange(0, 0);
    auto* tools = new QTabBar;
    for (const char* name : {"Диск 1", "Диск 2", "Диск 3"}) tools->addTab(QString::fromUtf8(name));
    auto* tall = new QSlider(Qt::Vertical);
    auto* scroll = new QScrollBar(Qt::Horizontal);
    scroll->setRange(0, 100);
    scroll->setPageStep(30);
    auto* checked = new QGroupBox(u"Проверять диск"_s);
    checked->setCheckable(true);
    checked->setLayout(column(new QCheckBox(u"при запуске"_s)));
    window->setLayout(row(column(menu, box, stretch), column(days, busy, tools, scroll, checked, stretch), tall));
    return window;
}

std::unique_ptr<QWidget> iconGallery()
{
    auto sheet = std::make_unique<QWidget>();
    auto* cells = new QGridLayout(sheet.get());
    int at = 0;
    for (const QString& name : iconNames()) {
        auto* cell = new QLabel;
        QPixmap picture(150, 56);
        picture.fill(sheet->palette().color(QPalette::Base));
        {
            QPainter painter(&picture);
            const QIcon drawn = icon(name);
            painter.fillRect(124, 0, 26, 56, sheet->palette().highlight());
            drawn.paint(&painter, 2, 20, 16, 16);
            drawn.paint(&painter, 22, 16, 24, 24);
            drawn.paint(&painter, 50, 4, 48, 48);
            drawn.paint(&painter, 102, 20, 18, 18, Qt::AlignCenter, QIcon::Disabled);
            drawn.paint(&painter, 128, 20, 18, 18, Qt::AlignCenter, QIcon::Selected);
        }
        cell->setPixmap(picture);
        auto* text = new QLabel(name);
        cells->addLayout(column(cell, text), at / 8, at % 8);
        ++at;
    }
    return sheet;
}

void savePicture(QWidget& window, const QString& name, qreal scale)
{
    const QString folder = qEnvironmentVariable("VINORA_PICTURES");
    if (folder.isEmpty()) return;
    QPixmap picture(window.size() * scale);
    picture.setDevicePixelRatio(scale);
    window.render(&picture);
    picture.save(u"%1/%2-%3x.png"_s.arg(folder, name).arg(scale));
}
