#include "mainwindow/frmCompactDB.h"

#include "platform/Literals.h"
#include "ui/IconLabel.h"
#include "ui/Layout.h"
#include "ui/Theme.h"

frmCompactDB::frmCompactDB()
{
    setObjectName(u"frmCompactDB"_s);
    setWindowTitle(u"vinora"_s);
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    auto* sign = new IconLabel;
    sign->setIcon(u"database"_s);
    sign->setScale(2);
    auto* layout = row(sign, label(u"Сжатие файлов базы данных…\nПожалуйста, подождите."_s));
    layout->setContentsMargins(Theme::Outside, Theme::Outside, Theme::Outside, Theme::Outside);
    layout->setSpacing(Theme::Between);
    setLayout(layout);
}
