#pragma once

#include "harness/ScreenTest.h"
#include "platform/Files.h"
#include "store/CdPlayerIni.h"

#include <QFile>

/// A disc of three tracks in the drive, the catalogue row that it is disc 2 of, and a cdplayer.ini of its own.
class AudioShelf : public ScreenTest {
protected:
    AudioShelf()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(path("config")));
        drives.v.medium = disc;
        screens.missing << "frmCDDB";
        request = {.key = shelf.audio(7, "Кино", "Группа крови").discs(2).key(),
                   .number = 7,
                   .title = "Кино",
                   .album = "Группа крови",
                   .discs = 1, // that of a record from elsewhere may be too small
                   .disc = 2};
    }

    /// The section of the disc in cdplayer.ini.
    static QString ini(const QString& id = Id)
    {
        QString text;
        const Profile file(SystemProfileFolder() + "/cdplayer.ini");
        for (const QString& key : file.keys(id)) text += key + '=' + file.read(id, key) + '\n';
        return text;
    }
    QString link() const { return rows("SELECT ДискID2, Записей2, Время2 FROM Аудио WHERE Номер = 7"); }

    static inline const QString Id = "80200";
    std::shared_ptr<FakeDisc> disc = FakeDisc::audio({{0, 2, 0}, {3, 0, 0}, {5, 0, 0}}, {9, 0, 0});
    ListRequest request;
};
