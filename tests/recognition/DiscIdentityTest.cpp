#include "recognition/DiscIdentity.h"

#include <gtest/gtest.h>

static VolumeProperties volume(const QString& label, quint32 length, const QString& fileSystem, quint32 serial = 0xABC)
{
    return {true, label, serial, length, 0, fileSystem};
}

TEST(DiscIdentity, IdentifierIsTheSerialWithoutLeadingZeros)
{
    EXPECT_EQ(SerialToID(0x0137EBFA), u"137EBFA"_s);
    EXPECT_EQ(SerialToID(0xFFFFFFFF), u"FFFFFFFF"_s);
    EXPECT_EQ(SerialToID(0), QString());
}

TEST(DiscIdentity, KindFollowsFromTheVolumesProperties)
{
    struct {
        VolumeProperties volume;
        const char* kind;
    } cases[] = {
        {volume("Audio CD", 221, "CDFS"), "AudioCD"},
        {volume("Audio CD 2", 221, "CDFS"), "AudioCD"},
        {volume("Audio CD", 110, "CDFS"), "PcCD"},
        {volume("GAMES", 221, "CDFS"), "PcCD"},
        {volume("GAMES", 110, "CDFS"), "PcCD"},
        {volume("FILM", 255, "UDF"), "DVD"},
        {volume("FILM", 255, "UDF 2.50"), "DVD"},
        {volume("X", 255, "NTFS"), "?"},
        {volume("X", 31, "CDFS"), "?"},
        {volume("Audio CD", 0, ""), "?"},
        {volume("", 0, "", 0), ""},
        {volume("X", 110, "CDFS", 0), "PcCD"},
        {VolumeProperties{}, ""},
    };
    for (const auto& [properties, kind] : cases)
        EXPECT_EQ(KindOfVolume(properties, {}), kind)
            << qPrintable(properties.label) << properties.maximumComponentLength;
}

TEST(DiscIdentity, TheUsersCorrectionOverrulesThePropertiesButNotAFailedQuery)
{
    const VolumeProperties audio = volume("Audio CD", 221, "CDFS");
    const std::pair<const char*, const char*> corrections[] = {
        {"PC", "PcCD"}, {"DVD", "DVD"}, {"AD", "AudioCD"}, {"n/a", ""}, {"pc", ""}};
    for (auto [correction, kind] : corrections) EXPECT_EQ(KindOfVolume(audio, correction), kind) << correction;

    VolumeProperties failed = audio;
    failed.success = false;
    EXPECT_EQ(KindOfVolume(failed, {}), QString());
    EXPECT_EQ(KindOfVolume(failed, u"PC"_s), QString());
}
