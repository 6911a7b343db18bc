#pragma once

#include <QString>
#include <QTemporaryFile>

class QMimeData;

/// A picture that is dropped or pasted: a file, as file managers give it, or the picture itself, as browsers and painting
/// programs do. The latter lies in a file of its own as long as this lives.
class GivenPicture {
public:
    /// Whether `data` seems to hold one, which is known without fetching it.
    static bool isIn(const QMimeData& data);
    /// Throws the error of `FileError` when the picture cannot be laid down.
    explicit GivenPicture(const QMimeData& data);

    /// Empty when the data held none after all.
    const QString& path() const { return m_path; }

private:
    QString m_path;
    QTemporaryFile m_own;
};
