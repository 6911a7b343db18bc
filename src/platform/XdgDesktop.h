#pragma once

#include "platform/Desktop.h"

/// Asks the desktop by way of xdg-open and waits up to a second for a refusal. True means that there was none, not that the
/// user saw anything.
class XdgDesktop final : public Desktop {
public:
    bool openFile(const QString& path) override;
    bool openFolderOf(const QString& path) override;
    /// Web and mail addresses only.
    bool openLink(const QString& url) override;
    QString complaint() const override { return m_complaint; }

private:
    bool open(const QString& what);
    bool refuse(const QString& complaint);

    QString m_complaint;
};
