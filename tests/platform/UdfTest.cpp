#include "harness/FileSystemImages.h"
#include "harness/UdfImage.h"

namespace {

using Kind = UdfImage::Kind;

class Udf : public ImageTest {};

TEST_F(Udf, BridgeListsWhatWasPutInAndPrefersUdf)
{
    put("readme.txt", "read me");
    put("Музыка/Деревня и люди.mp3", QByteArray(5000, 'm') + "end");
    put("Latin é/x.y");
    put(QString(60, u'ю'), "long");
    MAKE_IMAGE(genisoimage({"-J", "-R", "-udf"}));
    const auto system = open();
    EXPECT_EQ(printTree(*system), printDisk(tree));
    EXPECT_EQ(system->read("\\Музыка\\", "Деревня и люди.mp3", 4999, 100), "mend");
    VolumeProperties expected{true, "ARCHIVE", system->volume().serial, 255, 0x80007, "UDF"};
    EXPECT_EQ(system->volume(), expected);

    // Without its anchors only the other half of the bridge is left.
    QByteArray bytes = contentsOf(image);
    for (qsizetype at = 256 * 2048; at < bytes.size(); at += 2048)
        if (bytes[at] == 2) bytes[at] = 0;
    EXPECT_EQ(openBytes(bytes)->volume().fileSystem, "CDFS");
}

/// Options of the tool.
class UdfMedia : public Udf, public testing::WithParamInterface<const char*> {};

TEST_P(UdfMedia, EmptyVolumeTellsLabelAndSerial)
{
    const QStringList arguments = QStringList{"--utf8", "--label=Диск № 1", "--new-file"} +
                                  QString(GetParam()).split(u' ') + QStringList{image, "150000"};
    MAKE_IMAGE(run("mkudffs", arguments));
    const auto system = open();
    ASSERT_TRUE(system);
    const QStringList ofTheTool{"\\lost+found\\", "\\Non-Allocatable Space 0 h"};
    for (const QString& line : printTree(*system)) EXPECT_TRUE(ofTheTool.contains(line)) << line.toStdString();
    EXPECT_EQ(system->volume().label, "Диск № 1");

    QProcess info;
    info.start("udfinfo", {image});
    if (!info.waitForFinished()) GTEST_SKIP() << "udfinfo is not installed";
    const QString serial = QString::number(system->volume().serial, 16).rightJustified(8, u'0');
    EXPECT_THAT(info.readAll().toStdString(), testing::HasSubstr("winserialnum=0x" + serial.toStdString()));
}

INSTANTIATE_TEST_SUITE_P(EveryMedium, UdfMedia,
                         testing::Values("-m hd -b 512", "-m hd -b 1024", "-m hd -b 2048", "-m hd -b 4096", "-m dvd",
                                         "-m dvdrw", "-m dvdram", "-m dvdr", "-m cdrw -r 1.50", "-m cdr -r 1.50",
                                         "-m cdr -r 2.01", "-m bdr", "-m hd -b 512 --strategy 4096", "-m hd -r 1.02"));

/// How the volume is written, block size.
class UdfVolumes : public testing::TestWithParam<std::tuple<Kind, int>> {};

TEST_P(UdfVolumes, ListsAndReadsFilesInEveryForm)
{
    const QByteArray sparse = QByteArray(5000, 'a') + QByteArray(9000, 0) + QByteArray(3000, 'z');
    QList<UdfImage::Item> many, files{{"inline", "inline"},
                                      {"empty", {}, UdfImage::shortForm},
                                      {"unseen", "u", UdfImage::inlineForm, 1, UdfImage::hidden},
                                      {"deleted", "d", UdfImage::inlineForm, 1, UdfImage::deleted}};
    Tree expected{"\\many\\"}, forms;
    for (int i = 100; i < 160; ++i) {
        many.append({QString("Файл номер %1.txt").arg(i), QByteArray(i, 'x')});
        expected += QString("\\many\\Файл номер %1.txt %1").arg(i);
    }
    for (const auto form : {UdfImage::shortForm, UdfImage::longForm, UdfImage::extendedForm}) {
        for (const int perBlock : {3, 7}) {
            files.append({QString("form%1 %2").arg(form).arg(perBlock), sparse, form, perBlock});
            forms += QString("\\Файлы\\form%1 %2 17000").arg(form).arg(perBlock);
        }
    }
    expected += QStringList{"\\none\\", "\\Файлы\\", "\\Файлы\\empty 0"} + forms +
                QStringList{"\\Файлы\\inline 6", "\\Файлы\\unseen 1 h"};

    const auto [kind, blockSize] = GetParam();
    const auto system = openBytes(
        UdfImage(kind, blockSize)
            .build(UdfImage::folder({}, {UdfImage::folder("Файлы", files, UdfImage::shortForm),
                                         UdfImage::folder("many", many, UdfImage::shortForm, 2),
                                         UdfImage::folder("none", {}, UdfImage::longForm)})));
    EXPECT_EQ(system->volume().label, kind == Kind::virtualNew ? "Имя из таблицы" : "Том");
    EXPECT_EQ(printTree(*system), expected);
    for (const QString name : {"form0 3", "form1 7", "form2 3"})
        for (const auto& [offset, length] : {std::pair{0, 20000}, {4999, 9002}, {16999, 9}})
            EXPECT_EQ(system->read("\\Файлы\\", name, offset, length), sparse.mid(offset, length)) << offset;
    EXPECT_EQ(system->read("\\Файлы\\", "inline", 2, 3), "lin");
}

INSTANTIATE_TEST_SUITE_P(EveryKind, UdfVolumes,
                         testing::Combine(testing::Values(Kind::plain, Kind::sparable, Kind::virtualOld,
                                                          Kind::virtualNew, Kind::metadata),
                                          testing::Values(512, 1024, 2048, 4096)));

}
