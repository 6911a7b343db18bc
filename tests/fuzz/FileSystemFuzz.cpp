// A long input is a medium. A short one is a list of edits, each of 8 bytes: width, descriptor (16 bits), place in it
// (16 bits), value (24 bits); they are made to UDF volumes, whose sums would stop any other change at once.

#include "../harness/UdfImage.h"
#include "platform/disc/Disc.h"

#include <QtEndian>

namespace {

class Memory : public SectorSource {
public:
    explicit Memory(const QByteArray& bytes) : m_bytes(bytes) {}
    qint64 size() const override { return m_bytes.size(); }
    QByteArray read(qint64 offset, qint64 length) override
    {
        if (offset < 0 || length < 0 || offset + length > m_bytes.size()) abort();
        return m_bytes.mid(offset, length);
    }

private:
    QByteArray m_bytes;
};

void walk(FileSystem& system, const QString& folder, int& entriesLeft)
{
    try {
        for (const DiscEntry& entry : system.list(folder)) {
            if (entriesLeft-- == 0) return;
            if (entry.folder) {
                walk(system, folder + entry.name + u'\\', entriesLeft);
            } else {
                system.read(folder, entry.name, 0, 3000);
                system.read(folder, entry.name, entry.size - 128, 128);
            }
        }
    } catch (const RuntimeError&) {
    }
}

void open(const QByteArray& medium)
{
    try {
        const auto system = OpenFileSystem(std::make_shared<Memory>(medium));
        if (!system) return;
        system->volume();
        int entriesLeft = 20000;
        walk(*system, QStringLiteral("\\"), entriesLeft);
    } catch (const RuntimeError&) {
    }
}

UdfImage::Item contents()
{
    const QByteArray sparse = QByteArray(5000, 'a') + QByteArray(9000, 0) + QByteArray(3000, 'z');
    QList<UdfImage::Item> files;
    for (const auto form : {UdfImage::shortForm, UdfImage::longForm, UdfImage::extendedForm})
        files.append({QStringLiteral("%1").arg(form), sparse, form, 5});
    const auto inner = UdfImage::folder(QStringLiteral("inner"), files, UdfImage::longForm);
    return UdfImage::folder({}, {inner, UdfImage::folder(QStringLiteral("none"), {}), files.first()});
}

}

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    if (size > 32768) {
        open(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
        return 0;
    }
    static const QList<QByteArray> volumes = [] {
        QList<QByteArray> all;
        for (const auto kind :
             {UdfImage::plain, UdfImage::sparable, UdfImage::virtualOld, UdfImage::virtualNew, UdfImage::metadata})
            all.append(UdfImage(kind, 512).build(contents()));
        return all;
    }();
    static const QList<QList<qsizetype>> places = [] {
        QList<QList<qsizetype>> all;
        for (const QByteArray& volume : volumes) all.append(UdfImage::descriptors(volume));
        return all;
    }();
    if (!size) return 0;
    const int chosen = data[0] % volumes.size();
    QByteArray volume = volumes[chosen];
    for (size_t at = 1; at + 8 <= size; at += 8) {
        const qsizetype place = places[chosen][qFromLittleEndian<quint16>(data + at + 1) % places[chosen].size()];
        const qsizetype inside = place + qFromLittleEndian<quint16>(data + at + 3) % 512;
        for (int i = 0; i < 1 + data[at] % 3; ++i)
            if (inside + i < volume.size()) volume[inside + i] = static_cast<char>(data[at + 5 + i]);
    }
    UdfImage::reseal(volume, places[chosen]);
    open(volume);
    return 0;
}
