#include "recognition/DiscImages.h"

#include <gtest/gtest.h>

TEST(DiscImages, OfFilesDroppedTogetherTheSheetIsTheImage)
{
    const std::pair<QStringList, QString> drops[] = {
        {{u"/a/Band.BIN"_s, u"/a/Band.Cue"_s}, u"/a/Band.Cue"_s},
        {{u"/a/readme.txt"_s, u"/a/zima.iso"_s, u"/a/leto.nrg"_s}, u"/a/zima.iso"_s},
        {{u"/a/iso"_s, u"/a/b.cue/c"_s, u"/a/d.isox"_s}, {}},
        {{}, {}},
    };
    for (const auto& [files, image] : drops) EXPECT_EQ(ImageAmong(files), image) << files.join(u' ').toStdString();
}
