#pragma once

#include <QObject>
#include <QVariant>

class QDBusMessage;

/// Whether the desktop asks for light or dark windows, for desktops whose wish the toolkit does not pass on: the key
/// "color-scheme" of the settings portal (org.freedesktop.appearance), 1 dark, 2 light. Without a session bus or a portal
/// it stays silent.
class DesktopScheme : public QObject {
    Q_OBJECT
public:
    /// Waits a tenth of a second at most for the answer, so that the first window has its colours at once.
    explicit DesktopScheme(QObject* parent);

    /// "dark", "light" or, when the desktop has no wish, empty.
    const QString& scheme() const { return m_scheme; }

signals:
    void changed();

private slots:
    void settingChanged(const QDBusMessage& message);

private:
    void take(const QVariant& value);

    QString m_scheme;
};
