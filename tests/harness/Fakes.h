#pragma once

#include "frame/Screens.h"
#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "store/CatalogueKind.h"

#include <QStringList>

/// Stands still until a test moves it. At first it is Friday, 14 November 2003, noon.
class FixedClock final : public Clock {
public:
    QDateTime moment{QDate(2003, 11, 14), QTime(12, 0)};

    void set(QDate day) { moment.setDate(day); }
    void pass(int days) { moment = moment.addDays(days); }
    QDateTime now() const override { return moment; }
};

/// Opens nothing and keeps account: "file /x", "folder of /x", "link http://x".
class FakeDesktop final : public Desktop {
public:
    QStringList opened;
    bool obeys = true;

    bool openFile(const QString& path) override { return note(u"file "_s + path); }
    bool openFolderOf(const QString& path) override { return note(u"folder of "_s + path); }
    bool openLink(const QString& url) override { return note(u"link "_s + url); }
    QString complaint() const override { return u"Рабочий стол занят."_s; }

private:
    bool note(const QString& what)
    {
        opened << what;
        return obeys;
    }
};

/// Screens of other subsystems: opens none and keeps account, such as "ShowFileList 7 \"Debian\" disc 1 of 2".
class FakeScreens final : public Screens {
public:
    QStringList opened;
    QStringList missing; ///< screens that this program does not offer
    ListRequest lastRequest;
    std::optional<DiscChoice> picked; ///< what the user picks
    std::function<void()> meanwhile;  ///< what the user does in the screen

    bool offers(QStringView screen) const override { return !missing.contains(screen); }
    void ShowFileList(Form&, const ListRequest& request) override { note(u"ShowFileList"_s, request); }
    void ShowTrackList(Form&, const ListRequest& request) override { note(u"ShowTrackList"_s, request); }
    void ShowAddInDue(Form&, const CatalogueKind& kind, qint64 disc) override
    {
        note(u"ShowAddInDue %1 %2"_s.arg(kind.code).arg(disc));
    }
    std::optional<DiscChoice> PickDisc(Form&, const QString& mode) override
    {
        note(u"PickDisc "_s + mode);
        return picked;
    }

private:
    void note(const QString& what)
    {
        opened << what;
        if (meanwhile) meanwhile();
    }
    void note(const QString& screen, const ListRequest& request)
    {
        lastRequest = request;
        note(u"%1 %2 \"%3\" disc %4 of %5"_s.arg(screen)
                 .arg(request.number)
                 .arg(request.title)
                 .arg(request.disc)
                 .arg(request.discs));
    }
};
