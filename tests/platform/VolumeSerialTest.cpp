#include "platform/disc/VolumeSerial.h"

#include <QByteArray>
#include <gtest/gtest.h>

static QByteArray Descriptor()
{
    QByteArray bytes(2048, 0);
    bytes.replace(0, 8, QByteArray::fromHex("0143443030310100"));
    return bytes;
}

TEST(VolumeSerial, OfIsoDescriptorHasFirstLaneHighest)
{
    QByteArray descriptor = Descriptor();
    EXPECT_EQ(IsoSerial(descriptor), 0x31744530u);
    descriptor.replace(40, 32, QByteArray("TESTDISC").leftJustified(32, ' '));
    EXPECT_EQ(IsoSerial(descriptor), 0x89C2AB87u);
}

TEST(VolumeSerial, LanesWrapWithoutCarry)
{
    QByteArray descriptor(2048, 0);
    for (int i = 0; i < 2048; ++i) descriptor[i] = static_cast<char>(i * i + i / 7);
    EXPECT_EQ(IsoSerial(descriptor), 0x256EB700u);
    EXPECT_EQ(UdfSerial(QByteArrayView(descriptor).first(512)), 0xA51280EEu);
}
