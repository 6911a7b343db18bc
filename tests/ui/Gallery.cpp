#include "ui/Gallery.h"

#include "platform/Literals.h"
#include "ui/Card.h"
#include "ui/IconTile.h"
#include "ui/Icons.h"
#include "ui/ImageButton.h"
#include "ui/Layout.h"
#include "ui/Lettering.h"
#include "ui/ListBar.h"
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

QTableWidget* table(const QStringList& headers, const QList<QStringList>& rows)
{
    auto* table = new QTableWidget(static_cast<int>(rows.size()), static_cast<int>(headers.size()));
    table->setHorizontalHeaderLabels(headers);
    table->verticalHeader()->hide();
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setShowGrid(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setHighlightSections(false);
    for (int r = 0; r < rows.size(); ++r)
        for (int c = 0; c < headers.size(); ++c) table->setItem(r, c, new QTableWidgetItem(rows[r][c]));
    table->setSortingEnabled(true);
    table->sortByColumn(0, Qt::AscendingOrder);
    table->resizeColumnsToContents();
    table->setCurrentCell(1, 0);
    return table;
}

Card* catalogueCard(int accent, const QString& iconName, const QString& title, const QString& count)
{
    auto* card = new Card;
    card->setAccent(accent);
    auto* tile = new IconTile;
    tile->setup(iconName, accent, title);
    QLabel* heading = lettered(label(title), Lettering::Heading);
    QLabel* number = lettered(label(count), Lettering::Number);
    card->setLayout(column(row(tile, column(heading, quiet(u"Обновлён 3 марта 2003 г."_s)), stretch),
                           row(number, quiet(u"дисков"_s), stretch), quiet(u"На руках: 2"_s),
                           row(button(u"disc"_s, u"Открыть"_s), button(u"add-disc"_s, u"Добавить"_s))));
    return card;
}

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

std::unique_ptr<QWidget> listGallery()
{
    auto window = std::make_unique<QDialog>();
    auto* discs = table({u"Номер"_s, u"Группа/Исполнитель"_s, u"Год"_s}, {{u"1"_s, u"Чайф"_s, u"1994"_s},
                                                                          {u"2"_s, u"Кино"_s, u"1988"_s},
                                                                          {u"3"_s, u"Аквариум"_s, u"1986"_s},
                                                                          {u"4"_s, u"Звуки Му"_s, u"1988"_s},
                                                                          {u"5"_s, u"Крематорий"_s, u"2000"_s},
                                                                          {u"6"_s, u"Аукцыон"_s, u"1990"_s},
                                                                          {u"7"_s, u"Сплин"_s, u"1998"_s},
                                                                          {u"8"_s, u"Пикник"_s, u"1996"_s},
                                                                          {u"9"_s, u"Алиса"_s, u"1989"_s}});
    auto* tree = new QTreeWidget;
    tree->setHeaderHidden(true);
    auto* root = new QTreeWidgetItem(tree, {u"..."_s});
    root->setIcon(0, icon(u"folder-root"_s));
    auto* docs = new QTreeWidgetItem(tree, {u"Документы"_s});
    docs->setIcon(0, icon(u"folder-open"_s));
    for (const char* name : {"Письма", "Отчёты"})
        (new QTreeWidgetItem(docs, {QString::fromUtf8(name)}))->setIcon(0, icon(u"folder"_s));
    tree->expandAll();
    tree->setCurrentItem(docs);
    auto* files = new QListWidget;
    const QStringList kinds{u"file-program"_s, u"file-archive"_s, u"file-picture-bmp"_s, u"file-audio"_s,
                            u"file-text"_s};
    for (const QString& kind : kinds) {
        auto* item = new QListWidgetItem(icon(kind), kind, files);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(kind.size() % 2 ? Qt::Checked : Qt::Unchecked);
    }
    files->setCurrentRow(1);
    auto* split = new QSplitter;
    split->addWidget(tree);
    split->addWidget(files);
    window->setLayout(
        column(discs, split, row(button(u"list-all"_s, u"Показать все"_s), stretch, button(u"close"_s, u"Закрыть"_s))));
    return window;
}

std::unique_ptr<QWidget> dashboardGallery()
{
    auto window = std::make_unique<QMainWindow>();
    QMenu* menu = nullptr;
    for (const char* title : {"&Каталог", "&Должники", "&База данных", "Ви&д", "&Помощь"})
        menu = window->menuBar()->addMenu(QString::fromUtf8(title));
    QMenu* first = window->menuBar()->actions().first()->menu();
    first->addAction(icon(u"disc-audio"_s), u"Аудио диски"_s)->setShortcut(QKeySequence(u"Ctrl+1"_s));
    first->addAction(icon(u"disc-data"_s), u"Компьютерные диски"_s)->setShortcut(QKeySequence(u"Ctrl+2"_s));
    first->addAction(icon(u"disc-dvd"_s), u"DVD диски"_s)->setEnabled(false);
    first->addSeparator();
    first->addMenu(u"Добавить"_s)->addAction(u"Аудио диск"_s);
    QAction* shown = first->addAction(u"Панель"_s);
    shown->setCheckable(true);
    shown->setChecked(true);
    first->addAction(icon(u"quit"_s), u"Выход"_s);
    menu->addAction(icon(u"about"_s), u"О программе"_s);

    QToolBar* bar = window->addToolBar(u"Каталоги"_s);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addAction(icon(u"add-disc"_s), u"Добавить"_s);
    bar->addAction(icon(u"edit"_s), u"Изменить"_s);
    bar->addAction(icon(u"delete"_s), u"Удалить"_s)->setEnabled(false);
    QToolBar* signs = window->addToolBar(u"База данных"_s);
    for (const QString& name : {u"search"_s, u"filter"_s, u"sort"_s, u"refresh"_s, u"loan"_s, u"statistics"_s,
                                u"backup"_s, u"options"_s, u"help"_s})
        signs->addAction(icon(name), name);
    auto* drive = new QComboBox;
    drive->addItem(icon(u"drive"_s), u"D:\\"_s);
    signs->addSeparator();
    signs->addWidget(drive);

    auto* list = new ListBar;
    list->addGroup(u"g1"_s, u"Каталоги"_s);
    list->addItem(u"g1"_s, u"1"_s, u"Аудио диски"_s, icon(u"disc-audio"_s));
    list->addItem(u"g1"_s, u"2"_s, u"Компьютерные диски"_s, icon(u"disc-data"_s));
    list->addItem(u"g1"_s, u"3"_s, u"DVD диски"_s, icon(u"disc-dvd"_s));
    list->addGroup(u"g2"_s, u"Должники"_s);
    list->addItem(u"g2"_s, u"due1"_s, u"Список должников"_s, icon(u"people"_s));
    list->addItem(u"g2"_s, u"due2"_s, u"История дисков"_s, icon(u"history"_s));
    list->addItem(u"g2"_s, u"due3"_s, u"Статистика"_s, icon(u"statistics"_s));
    list->setItemEnabled(u"g2"_s, u"Статистика"_s, false);
    list->addGroup(u"g3"_s, u"База данных"_s);
    list->addItem(u"g3"_s, u"db1"_s, u"Мастер обслуживания"_s, icon(u"wizard"_s));
    list->addItem(u"g3"_s, u"db2"_s, u"Поиск"_s, icon(u"search"_s));
    list->addGroup(u"g4"_s, u"Запрос"_s);
    list->setFoldedGroups({u"g4"_s});

    QLabel* title = lettered(label(u"Моя коллекция"_s), Lettering::Title);
    auto* due = new Card;
    QLabel* heading = lettered(label(u"На руках"_s), Lettering::Heading);
    auto* dues = table({u"Диск"_s, u"У кого"_s, u"Вернуть"_s}, {{u"Асса"_s, u"Иванов П."_s, u"30.10.2003"_s},
                                                                {u"Брат"_s, u"Маша"_s, u"15.11.2003"_s},
                                                                {u"Звуки Му"_s, u"Олег"_s, u"03.12.2003"_s}});
    due->setLayout(column(heading, dues));
    QBoxLayout* cards = row(catalogueCard(0, u"disc-audio"_s, u"Аудио диски"_s, u"1 248"_s),
                            catalogueCard(1, u"disc-data"_s, u"Компьютерные диски"_s, u"317"_s),
                            catalogueCard(2, u"disc-dvd"_s, u"DVD диски"_s, u"436"_s));
    cards->setSpacing(Theme::Between);
    QBoxLayout* top = column(title, quiet(u"2 001 диск в трёх каталогах, 5 на руках"_s));
    top->setSpacing(2);
    QBoxLayout* page = column(top, cards, due);
    page->setSpacing(Theme::Between);
    page->setContentsMargins(Theme::Outside, Theme::Outside, Theme::Outside, Theme::Outside);
    QBoxLayout* whole = row(list, page);
    whole->setSpacing(0);
    window->setCentralWidget(panel(whole));
    window->statusBar()->showMessage(u"Готово"_s);
    window->statusBar()->addPermanentWidget(new QLabel(u"Локальная база данных"_s));
    window->statusBar()->addPermanentWidget(new QLabel(u"14 ноября (пятница)"_s));
    window->resize(1180, 720);
    return window;
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
