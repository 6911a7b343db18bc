#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

/// Writes UDF volumes of the kinds that no tool at hand fills with files: packet-written, on write-once media, with
/// metadata partitions, in any block size, with files and folders in pieces.
class UdfImage {
public:
    enum Kind { plain, sparable, virtualOld, virtualNew, metadata };
    enum Form { shortForm, longForm, extendedForm, inlineForm };
    enum Characteristic : quint8 { hidden = 1, directory = 2, deleted = 4 };

    struct Item {
        QString name;
        QByteArray bytes;
        Form form = inlineForm;
        int descriptorsPerBlock = 1000; ///< more than these go on in a further block
        quint8 characteristics = 0;
        QList<Item> children{};
        int olderEntries = 0; ///< each leads to the one that took its place; for kind `plain`
    };
    static Item folder(const QString& name, const QList<Item>& children, Form form = inlineForm, int perBlock = 1000)
    {
        return {name, {}, form, perBlock, directory, children};
    }

    UdfImage(Kind kind, int blockSize) : m_kind(kind), m_blockSize(blockSize) {}
    QByteArray build(const Item& root);

    /// Places of all descriptors in a volume, ascending.
    static QList<qsizetype> descriptors(const QByteArray& image);
    /// Makes the sums of their tags right again after changes: of those inside others first.
    static void reseal(QByteArray& image, const QList<qsizetype>& places);

private:
    static constexpr quint32 partitionStart = 400, partitionLength = 65536, packet = 16, sparePlace = 300,
                             sparingTable = 290, metadataSplit = 10;

    quint16 entryPartition() const { return m_kind == plain || m_kind == sparable ? 0 : 1; }
    quint32 newEntry();
    quint32 medium(quint16 partition, quint32 block) const;
    void write(quint32 mediumBlock, const QByteArray& bytes);
    QByteArray identifiers(const Item& folder, quint32 own, quint32 parent);
    quint32 writeItem(const Item& item, std::optional<quint32> parent = {});
    QByteArray entry(quint8 type, const Item& item, quint32 location, quint16 partition, int strategy = 4);
    QByteArray descriptors(const Item& item, quint16 partition);
    QByteArray maps() const;
    void writeVolume();
    void writeTable();

    Kind m_kind;
    int m_blockSize;
    QByteArray m_image;
    quint32 m_nextEntry = 0, m_nextData = 64;
    QList<quint32> m_table; ///< of a virtual partition
};
