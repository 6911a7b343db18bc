#include "ui/QtDialogs.h"

#include "ui/Form.h"
#include "ui/NormalPointer.h"
#include "ui/WindowBelow.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTreeView>

BoxLook LookOfBox(int told)
{
    using B = QMessageBox;
    const int type = told & ~Box::SafeDefault;
    // 49 is told as a stop, although by the sum it would be an exclamation.
    const int icon = type == Box::StopOkCancel ? Box::Stop : type & 0xF0;
    const bool risky = told != type || type == Box::Warning || type == Box::StopOkCancel;

    BoxLook look{B::NoIcon, B::Ok, B::Ok, B::Ok};
    switch (icon) {
    case 16: look.icon = B::Critical; break;
    case 32: look.icon = B::Question; break;
    case 48: look.icon = B::Warning; break;
    case 64: look.icon = B::Information; break;
    default: break;
    }
    switch (type & 0x0F) {
    case 1: look = {look.icon, B::Ok | B::Cancel, B::Ok, B::Cancel}; break;
    case 3: look = {look.icon, B::Yes | B::No | B::Cancel, B::Yes, B::Cancel}; break;
    case 4: look = {look.icon, B::Yes | B::No, B::Yes, B::No}; break;
    default: break;
    }
    if (risky) look.byDefault = look.escape;
    return look;
}

/// A box wraps its text at blanks alone and cuts what is wider than the screen: the name of a file, say. The breaks are
/// real ones, which are seen in what is copied.
static QString withBrokenWords(const QString& text)
{
    constexpr int LongestWord = 48;

    QString result;
    int unbroken = 0;
    for (const QChar c : text) {
        unbroken = c.isSpace() ? 0 : unbroken + 1;
        if (unbroken > LongestWord && !c.isLowSurrogate() && !c.isMark()) {
            result += u'\n';
            unbroken = 1;
        }
        result += c;
    }
    return result;
}

QString ReadableMessage(QString text)
{
    return withBrokenWords(text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\t', u"    "_s));
}

QStringList NameFilters(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList result;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        // A label that names its patterns already would name them twice.
        const QString label = parts[i].section(u'(', 0, 0).trimmed();
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        for (QString& pattern : patterns)
            if (pattern == u"*.*") pattern = u"*"_s;
        result << u"%1 (%2)"_s.arg(label, patterns.join(u' '));
    }
    return result;
}

/// Stands while something modal is up.
class QtDialogs::Modal {
public:
    explicit Modal(QtDialogs& owner) : m_owner(owner), m_writes(owner.m_engine) { ++owner.m_depth; }
    ~Modal() { --m_owner.m_depth; }

private:
    QtDialogs& m_owner;
    ModalScope m_writes;
    NormalPointer m_pointer;
};

/// The rows of a file chooser with sizes and dates in the program's language; the toolkit's are in the system's.
class QtDialogs::FileRows : public QIdentityProxyModel {
public:
    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex& index, int role) const override
    {
        const auto* files = qobject_cast<QFileSystemModel*>(sourceModel());
        if (role != Qt::DisplayRole || !files) return QIdentityProxyModel::data(index, role);
        const QFileInfo file = files->fileInfo(mapToSource(index));
        switch (index.column()) {
        case Size:
            return file.isDir() ? QString()
                                : QLocale().formattedDataSize(file.size(), 1, QLocale::DataSizeTraditionalFormat);
        case Modified: return QLocale().toString(file.lastModified(), QLocale::ShortFormat);
        default: return QIdentityProxyModel::data(index, role);
        }
    }

private:
    enum Column { Name, Size, Type, Modified };
};

/// The toolkit's own file chooser: it speaks Russian and looks like the program on every desktop.
class QtDialogs::Chooser : public QFileDialog {
public:
    Chooser(QtDialogs& owner, const QString& title, const QString& folder)
        : QFileDialog(WindowBelow(), title, folder), m_owner(owner)
    {
        setOption(DontUseNativeDialog);
        setProxyModel(new FileRows(this));
        resize(fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 30);
    }

    QString choose()
    {
        const Modal modal(m_owner);
        if (exec() != Accepted || selectedFiles().isEmpty()) return {};
        const QString path = selectedFiles().constFirst();
        const QFileInfo info(path);
        if (m_owner.m_hooks.keepLastFolder)
            m_owner.m_hooks.keepLastFolder(fileMode() == Directory ? path : info.absolutePath());
        return QDir::cleanPath(path);
    }

protected:
    /// The toolkit's own widths cut dates and the places at the side.
    void showEvent(QShowEvent* event) override
    {
        QFileDialog::showEvent(event);
        if (auto* places = findChild<QWidget*>(u"sidebar"_s))
            places->setMinimumWidth(fontMetrics().averageCharWidth() * 18);
        const auto* files = findChild<QTreeView*>(u"treeView"_s);
        if (!files) return;
        QHeaderView& header = *files->header();
        header.setStretchLastSection(false);
        for (int column = 0; column < header.count(); ++column)
            header.setSectionResizeMode(column, column == 0 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    }

private:
    QtDialogs& m_owner;
};

Answer QtDialogs::MsgBox(const QString& text, int type)
{
    const Modal modal(*this);
    const BoxLook look = LookOfBox(type);
    QMessageBox box(look.icon, u"vinora"_s, ReadableMessage(text), look.buttons, WindowBelow());
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setDefaultButton(look.byDefault);
    box.setEscapeButton(look.escape);
    switch (box.exec()) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Cancel: return Answer::Cancel;
    default: return Answer::Ok;
    }
}

QString QtDialogs::InputBox(const QString& prompt, const QString& title, const QString& text)
{
    const Modal modal(*this);
    QInputDialog box(WindowBelow());
    box.setWindowTitle(title);
    box.setLabelText(ReadableMessage(prompt));
    box.setTextValue(text);
    for (QLabel* label : box.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    // The dialog's layout has a minimum of its own and sets it; of its parts it asks.
    box.findChild<QLineEdit*>()->setMinimumWidth(60 * box.fontMetrics().averageCharWidth());
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

QString QtDialogs::folderFor(const QString& told) const
{
    if (!told.isEmpty() || !m_hooks.lastFolder) return told;
    return m_hooks.lastFolder();
}

QString QtDialogs::OpenFile(const QString& title, const QString& filter, const QString& folder)
{
    Chooser chooser(*this, title, folderFor(folder));
    chooser.setFileMode(QFileDialog::ExistingFile);
    chooser.setNameFilters(NameFilters(filter));
    return chooser.choose();
}

QString QtDialogs::SaveFile(const QString& title, const QString& filter, const QString& name)
{
    const QFileInfo proposed(name);
    Chooser chooser(*this, title, folderFor(proposed.isAbsolute() ? proposed.absolutePath() : QString()));
    chooser.setAcceptMode(QFileDialog::AcceptSave);
    chooser.setFileMode(QFileDialog::AnyFile);
    chooser.setNameFilters(NameFilters(filter));
    const QString suffix = QFileInfo(filter.section(u'|', 1, 1).section(u';', 0, 0)).suffix();
    if (suffix != u"*"_s) chooser.setDefaultSuffix(suffix);
    chooser.selectFile(proposed.fileName());
    return chooser.choose();
}

QString QtDialogs::PickFolder(const QString& title, const QString& folder)
{
    Chooser chooser(*this, title, folderFor(folder));
    chooser.setFileMode(QFileDialog::Directory);
    chooser.setOption(QFileDialog::ShowDirsOnly);
    return chooser.choose();
}

void QtDialogs::RunModal(Form& form)
{
    const Modal modal(*this);
    form.exec();
}

void QtDialogs::Popup(QMenu& menu, const QPoint& at)
{
    const Modal modal(*this);
    menu.exec(at);
}
