#pragma once

#include <QString>

/// What the user's desktop does for us. Paths are native. Each returns false when the desktop refused; complaint() says why.
class Desktop {
public:
    virtual ~Desktop() = default;
    virtual bool openFile(const QString& path) = 0;
    virtual bool openFolderOf(const QString& path) = 0;
    virtual bool openLink(const QString& url) = 0;
    /// What the last call that was refused lacked and what the user can do, in sentences; empty when nobody knows.
    virtual QString complaint() const { return {}; }
};
