#include "lending/Borrowers.h"

QStringList BorrowerNames(const Database& main, NameOrder order)
{
    QStringList names;
    const QString field = order == NameOrder::Added ? u"КодИмени"_s : u"Имя"_s;
    Recordset rows = main.OpenRecordset(u"SELECT Имя FROM ИменаДолжников ORDER BY "_s + field);
    for (; !rows.AtEOF(); rows.MoveNext()) names += rows[u"Имя"].text();
    return names;
}

std::optional<qint64> FindBorrower(const Database& main, const QString& name)
{
    const Value key = main.Scalar(u"SELECT MIN(КодИмени) FROM ИменаДолжников WHERE Имя = ?", {name});
    return key.isNull() ? std::nullopt : std::optional(key.toLong());
}

qint64 AddBorrower(const Database& main, const QString& name)
{
    Recordset row = main.OpenRecordset(u"ИменаДолжников");
    row.AddNew();
    row[u"Имя"] = name;
    row[u"Телефон"] = NoPhone;
    const qint64 key = row.value(u"КодИмени").toLong();
    row.Update();
    return key;
}

qint64 FindOrAddBorrower(const Database& main, const QString& name)
{
    const auto known = FindBorrower(main, name);
    return known ? *known : AddBorrower(main, name);
}

void RenameBorrower(const Database& main, qint64 key, const QString& name)
{
    main.Execute(u"UPDATE ИменаДолжников SET Имя = ? WHERE КодИмени = ?", {name, key});
}

bool DeleteBorrower(const Database& main, qint64 key)
{
    if (HasOpenLoans(main, key)) return false;
    main.Execute(u"DELETE FROM ИменаДолжников WHERE КодИмени = ?", {key});
    return true;
}

bool HasOpenLoans(const Database& main, qint64 key)
{
    return main.Scalar(u"SELECT COUNT(*) FROM Должники WHERE КодИмяДолжника = ? AND Долг = True", {key}).toBool();
}

QString PhoneOf(const Database& main, qint64 key)
{
    return main.Scalar(u"SELECT Телефон FROM ИменаДолжников WHERE КодИмени = ?", {key}).text();
}

QString ChangePhone(const Database& main, qint64 key, const QString& text)
{
    const QString phone = text.isEmpty() ? NoPhone : text;
    main.Execute(u"UPDATE ИменаДолжников SET Телефон = ? WHERE КодИмени = ?", {phone, key});
    return phone;
}
