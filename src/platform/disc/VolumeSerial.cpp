#include "platform/disc/VolumeSerial.h"

#include <array>

/// Four sums of every fourth byte, each modulo 256.
static std::array<quint8, 4> Lanes(QByteArrayView bytes)
{
    std::array<quint8, 4> lanes{};
    for (qsizetype i = 0; i < bytes.size(); ++i) lanes[i % 4] += static_cast<quint8>(bytes[i]);
    return lanes;
}

static quint32 Pack(quint8 high, quint8 second, quint8 third, quint8 low)
{
    return quint32(high) << 24 | quint32(second) << 16 | quint32(third) << 8 | low;
}

quint32 IsoSerial(QByteArrayView descriptor)
{
    const auto lanes = Lanes(descriptor);
    return Pack(lanes[0], lanes[1], lanes[2], lanes[3]);
}

quint32 UdfSerial(QByteArrayView fileSetDescriptor)
{
    const auto lanes = Lanes(fileSetDescriptor.first(512));
    return Pack(lanes[3], lanes[2], lanes[1], lanes[0]);
}
