#include "frame/Program.h"
#include "harness/QuickFolder.h"
#include "harness/Script.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <gtest/gtest.h>

namespace {
/// Counts events, so that a script knows when its windows are idle, and stops what may not pass through the toolkit's own
/// frames: the end of the process and of a failed test.
class TestApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        if (ScriptRunner* runner = ScriptRunner::current()) runner->saw(receiver);
        try {
            return QApplication::notify(receiver, event);
        } catch (const ScriptAborted&) {
        } catch (const ProcessEnded&) {
        } catch (const std::exception& error) {
            tell(error.what());
        }
        return true;
    }

private:
    static void tell(const char* what)
    {
        const std::string message = std::string("An exception left a routine: ") + what;
        ScriptRunner* runner = ScriptRunner::current();
        if (!runner) {
            ADD_FAILURE() << message;
            return;
        }
        try {
            runner->abort(QString::fromStdString(message));
        } catch (const ScriptAborted&) {
        }
    }
};

/// Platforms complain of what no script needs.
void printMessage(QtMsgType, const QMessageLogContext&, const QString& message)
{
    const bool idle = message.startsWith(u"This plugin does not support") || message.contains(u"XDG_RUNTIME_DIR");
    if (!idle) std::fprintf(stderr, "%s\n", qPrintable(message));
}
}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(printMessage);
    UseQuickTemporaryFolder();
    // With GLib's loop no one can tell when it is idle.
    qputenv("QT_NO_GLIB", "1");
    qputenv("QT_ACCESSIBILITY", "0");
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    TestApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (qEnvironmentVariableIsSet("VINORA_PICTURES"))
        Theme::apply(application, qEnvironmentVariable("VINORA_SCHEME", u"light"_s));
    QTranslator translator;
    if (translator.load(QLocale(), u"qtbase"_s, u"_"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
