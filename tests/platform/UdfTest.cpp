#include "FileSystemImages.h"
#include "UdfImage.h"
#include "platform/Literals.h"

#include <gmock/gmock.h>

namespace {

using Kind = UdfImage::Kind;

class Udf : public ImageTest {};

TEST_F(Udf, BridgeListsWhatWasPutInAndPrefersUdf)
{
    put(u"readme.txt"_s, "read me");
    put(u"Музыка/Деревня и люди.mp3"_s, QByteArray(5000, 'm') + "end");
    put(u"Latin é/x.y"_s);
    put(QString(60, u'ю'), "long");
    MAKE_IMAGE(genisoimage({u"-J"_s, u"-R"_s, u"-udf"_s}));
    const auto system = open();
    EXPECT_EQ(printTree(*system), printDisk(tree));
    EXPECT_EQ(system->read(u"\\Музыка\\"_s, u"Деревня и люди.mp3"_s, 4999, 100), "mend");
    const VolumeProperties volume = system->volume();
    EXPECT_EQ(volume.fileSystem, u"UDF"_s);
    EXPECT_EQ(volume.label, u"ARCHIVE"_s);
    EXPECT_EQ(volume.maximumComponentLength, 255u);

    // Without its anchors only the other half of the bridge is left.
    QByteArray bytes = contentsOf(image);
    for (qsizetype at = 256 * 2048; at < bytes.size(); at += 2048)
        if (bytes[at] == 2) bytes[at] = 0;
    EXPECT_EQ(openBytes(bytes)->volume().fileSystem, u"CDFS"_s);
}

/// Options of the tool.
class UdfMedia : public Udf, public testing::WithParamInterface<const char*> {};

TEST_P(UdfMedia, EmptyVolumeTellsLabelAndSerial)
{
    const QStringList arguments = QStringList{u"--utf8"_s, u"--label=Диск № 1"_s, u"--new-file"_s} +
                                  QString::fromLatin1(GetParam()).split(u' ') + QStringList{image, u"150000"_s};
    MAKE_IMAGE(run(u"mkudffs"_s, arguments));
    const auto system = open();
    ASSERT_TRUE(system);
    const QSet<QString> ofTheTool{u"\\lost+found\\"_s, u"\\Non-Allocatable Space 0 h"_s};
    for (const QString& line : printTree(*system)) EXPECT_TRUE(ofTheTool.contains(line)) << line.toStdString();
    EXPECT_EQ(system->volume().label, u"Диск № 1"_s);

    QProcess info;
    info.start(u"udfinfo"_s, {image});
    if (!info.waitForFinished()) GTEST_SKIP() << "udfinfo is not installed";
    const QString serial = QString::number(system->volume().serial, 16).rightJustified(8, u'0');
    EXPECT_THAT(info.readAll().toStdString(), testing::HasSubstr("winserialnum=0x" + serial.toStdString()));
}

INSTANTIATE_TEST_SUITE_P(EveryMedium, UdfMedia,
                         testing::Values("-m hd -b 512", "-m hd -b 1024", "-m hd -b 2048", "-m hd -b 4096", "-m dvd",
                                         "-m dvdrw", "-m dvdram", "-m dvdr", "-m cdrw -r 1.50", "-m cdr -r 1.50",
                                         "-m cdr -r 2.01", "-m bdr", "-m hd -b 512 --strategy 4096", "-m hd -r 1.02"));

/// How the volume is written, block size.
class UdfVolumes : public testing::TestWithParam<std::tuple<Kind, int>> {
protected:
    static UdfImage::Item contents()
    {
        const QByteArray sparse = QByteArray(5000, 'a') + QByteArray(9000, 0) + QByteArray(3000, 'z');
        QList<UdfImage::Item> many;
        for (int i = 100; i < 160; ++i) many.append({u"Файл номер %1.txt"_s.arg(i), QByteArray(i, 'x')});
        QList<UdfImage::Item> files{{u"inline"_s, "inline"},
                                    {u"empty"_s, {}, UdfImage::shortForm},
                                    {u"unseen"_s, "u", UdfImage::inlineForm, 1, UdfImage::hidden},
                                    {u"deleted"_s, "d", UdfImage::inlineForm, 1, UdfImage::deleted}};
        for (const auto form : {UdfImage::shortForm, UdfImage::longForm, UdfImage::extendedForm})
            for (const int perBlock : {3, 7})
                files.append({u"form%1 %2"_s.arg(form).arg(perBlock), sparse, form, perBlock});
        return UdfImage::folder({}, {UdfImage::folder(u"Файлы"_s, files, UdfImage::shortForm),
                                     UdfImage::folder(u"many"_s, many, UdfImage::shortForm, 2),
                                     UdfImage::folder(u"none"_s, {}, UdfImage::longForm)});
    }
    QByteArray image = UdfImage(std::get<0>(GetParam()), std::get<1>(GetParam())).build(contents());
};

TEST_P(UdfVolumes, ListsAndReadsFilesInEveryForm)
{
    const auto system = openBytes(image);
    EXPECT_EQ(system->volume().label, std::get<0>(GetParam()) == Kind::virtualNew ? u"Имя из таблицы"_s : u"Том"_s);
    Tree expected{u"\\many\\"_s};
    for (int i = 100; i < 160; ++i) expected.append(u"\\many\\Файл номер %1.txt %1"_s.arg(i));
    expected += {u"\\none\\"_s, u"\\Файлы\\"_s, u"\\Файлы\\empty 0"_s};
    for (const int form : {0, 1, 2})
        for (const int perBlock : {3, 7}) expected.append(u"\\Файлы\\form%1 %2 17000"_s.arg(form).arg(perBlock));
    expected += {u"\\Файлы\\inline 6"_s, u"\\Файлы\\unseen 1 h"_s};
    EXPECT_EQ(printTree(*system), expected);

    const QByteArray sparse = QByteArray(5000, 'a') + QByteArray(9000, 0) + QByteArray(3000, 'z');
    for (const QString& name : {u"form0 3"_s, u"form1 7"_s, u"form2 3"_s}) {
        EXPECT_EQ(system->read(u"\\Файлы\\"_s, name, 0, 20000), sparse) << name.toStdString();
        EXPECT_EQ(system->read(u"\\Файлы\\"_s, name, 4999, 9002), sparse.mid(4999, 9002)) << name.toStdString();
        EXPECT_EQ(system->read(u"\\Файлы\\"_s, name, 16999, 9), "z") << name.toStdString();
    }
    EXPECT_EQ(system->read(u"\\Файлы\\"_s, u"inline"_s, 2, 3), "lin");
}

INSTANTIATE_TEST_SUITE_P(EveryKind, UdfVolumes,
                         testing::Combine(testing::Values(Kind::plain, Kind::sparable, Kind::virtualOld,
                                                          Kind::virtualNew, Kind::metadata),
                                          testing::Values(512, 1024, 2048, 4096)));

}
