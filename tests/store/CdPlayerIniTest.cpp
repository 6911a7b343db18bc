#include "store/CdPlayerIni.h"

#include "harness/Print.h"
#include "platform/Files.h"
#include "platform/Profile.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(CdPlayerFile, ACountFromTheFileIsBounded)
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    const Profile file(config.filePath("cdplayer.ini"));
    for (const auto& [written, count] : {std::pair{"99999999999", 99}, {"-5", 0}, {"много", 0}, {" 2 трека", 2}}) {
        file.write(u"1A", u"NUMTRACKS", written);
        EXPECT_EQ(CdPlayerIni().read("1A")->tracks.size(), count) << written;
    }
    EXPECT_FALSE(CdPlayerIni().read("2B"));
}
