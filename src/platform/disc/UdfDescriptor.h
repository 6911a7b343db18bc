#pragma once

#include <QByteArrayView>
#include <QString>

/// Tag identifiers of the descriptors that are read (ECMA-167 3/7.2.1, 4/7.2.1).
enum class UdfTag : quint16 {
    none = 0xFFFF,    ///< no descriptor, or a damaged one
    sparingTable = 0, ///< of UDF (2.2.12); a blank block passes for it too
    primaryVolume = 1,
    anchor = 2,
    volumePointer = 3,
    partition = 5,
    logicalVolume = 6,
    terminating = 8,
    fileSet = 256,
    fileIdentifier = 257,
    allocationExtent = 258,
    indirectEntry = 259,
    fileEntry = 261,
    extendedFileEntry = 266,
};

/// The tag of the descriptor that begins `bytes`, when its checksum and the sum over its body are right.
UdfTag CheckTag(QByteArrayView bytes);
/// The block that the tag says it was written to.
quint32 TagLocation(QByteArrayView descriptor);
/// The block's bytes themselves, when its tag is the one that is told; else DiscError.
QByteArrayView ExpectTag(QByteArrayView bytes, UdfTag tag);

/// OSTA compressed unicode (UDF 2.1.1): a byte 8 or 16, then as many bits per character. Throws DiscError for any other.
QString DecodeCompressedUnicode(QByteArrayView bytes);
/// The same in a field of fixed length, whose last byte tells how much of it is used (ECMA-167 1/7.2.12).
QString DecodeDString(QByteArrayView field);

/// A block of a partition (ECMA-167 4/7.1). The partition is a number of the logical volume's map, not of a descriptor.
struct UdfAddress {
    quint32 block = 0;
    quint16 partition = 0;
};

/// The length of an extent, less the two bits that tell its kind (ECMA-167 4/14.14.1.1).
constexpr quint32 ExtentLength(quint32 field) { return field & 0x3FFFFFFF; }

/// An allocation descriptor of the long form (4/14.14.2) at a place of a descriptor.
struct UdfLongExtent {
    quint32 length = 0; ///< bytes
    UdfAddress start;

    static UdfLongExtent read(QByteArrayView descriptor, qint64 at);
};
