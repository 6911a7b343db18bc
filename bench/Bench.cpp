#include "Bench.h"

#include "frame/Text.h"
#include "store/DatabaseSet.h"
#include "store/StartUp.h"
#include "ui/Form.h"
#include "ui/Theme.h"

#include <QKeyEvent>
#include <cstdlib>

static int& withPlatform(int& argc)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    return argc;
}

Bench::Bench(int& argc, char** argv, std::unique_ptr<Drives> drives)
    : m_application(withPlatform(argc), argv),
      m_drives(std::move(drives)), program{.applicationFolder = m_folder.path(),
                                           .version = u"1.0.0"_s,
                                           .clock = m_clock,
                                           .engine = engine,
                                           .drives = *m_drives,
                                           .dialogs = dialogs,
                                           .desktop = m_desktop,
                                           .endProcess = [](int code) { std::_Exit(code); }}
{
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(RussianLocale());
    Theme::apply(m_application, u"light"_s);
    SetFilePaths(program);
    PrepareDatabases(program);
}

void FillShelf(Program& program, const CatalogueKind& kind, int count)
{
    static const QStringList words =
        u"Архив Библиотека Время Город Дорога Европа Журнал Звук Игра Карта Лето Музыка "
        "Небо Океан Письма Река Сборник Театр Улица Фото Хроника Цирк Школа Энциклопедия"_s.split(u' ');
    constexpr int Names = 10; // every dictionary has as many

    const CommandScope scope(program.engine);
    const Database main = program.mainDatabase();
    main.Execute(u"DELETE FROM "_s + kind.table);
    const QString fields = u"Название, %1, Год, Дисков"_s.arg(kind.dictionary.key);
    main.Execute(u"INSERT INTO %1 (Номер, %2) VALUES (1, \"x\", 1, \"2003\", 1)"_s.arg(kind.table, fields));
    for (int have = 1; have < count; have *= 2)
        main.Execute(
            u"INSERT INTO %1 (Номер, %2) SELECT Номер + ?, %2 FROM %1 WHERE Номер <= ?"_s.arg(kind.table, fields),
            {have, count - have});
    Recordset rows = main.OpenRecordset(kind.table);
    for (; !rows.AtEOF(); rows.MoveNext()) {
        const int number = rows[u"Номер"].toInt(), scattered = number * 7919 % 32768;
        const QString& word = words[scattered % words.size()];
        rows.Edit();
        rows[u"Название"] = word + (number % 2 ? u" для дома № %1"_s : u" № %1"_s).arg(scattered);
        if (kind.album) rows[u"Альбом"] = u"Часть %1"_s.arg(number % 12);
        rows[kind.dictionary.key] = 1 + number % Names;
        rows[u"Год"] = QString::number(1990 + number % 20);
        rows.Update();
    }
}

namespace {

/// Waits for the first paint of a control, wherever it is made.
class FirstPaint : public QObject {
public:
    FirstPaint(QStringView control, std::function<void(QWidget&)> then) : m_control(control), m_then(std::move(then))
    {
        m_timer.start();
        qApp->installEventFilter(this);
    }

    double elapsed = 0;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint || !watched->isWidgetType()) return false;
        // Of a list it is the viewport that is painted.
        const QObject* list = watched->parent();
        if (watched->objectName() != m_control && (!list || list->objectName() != m_control)) return false;
        qApp->removeEventFilter(this);
        QWidget& window = *static_cast<QWidget*>(watched)->window();
        const auto painted = [this, &window] {
            elapsed = double(m_timer.nsecsElapsed()) / 1e6;
            if (m_then) m_then(window);
            if (auto* form = qobject_cast<Form*>(&window))
                form->Unload();
            else
                window.close();
        };
        QMetaObject::invokeMethod(this, painted, Qt::QueuedConnection);
        return false;
    }

private:
    QStringView m_control;
    std::function<void(QWidget&)> m_then;
    QElapsedTimer m_timer;
};

}

double TimeToPaint(const std::function<void()>& open, QStringView control, const std::function<void(QWidget&)>& then)
{
    FirstPaint paint(control, then);
    open();
    if (paint.elapsed == 0) {
        std::fprintf(stderr, "nothing was painted as %s\n", qPrintable(control.toString()));
        std::exit(EXIT_FAILURE);
    }
    return paint.elapsed;
}

void Press(QWidget& widget, int key, const QString& text)
{
    QKeyEvent event(QEvent::KeyPress, key, {}, text);
    QApplication::sendEvent(&widget, &event);
    QApplication::processEvents();
}
