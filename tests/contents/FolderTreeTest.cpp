#include "contents/FolderModel.h"
#include "harness/Print.h"
#include "platform/RuntimeError.h"

#include <QAbstractItemModelTester>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// One line per node, two blanks per level.
std::string drawn(QStringList paths)
{
    std::sort(paths.begin(), paths.end(), FolderPathLess);
    const QList<FolderNode> nodes = BuildFolderTree(paths);
    std::function<QString(int, int)> draw = [&](int parent, int depth) {
        QString text;
        for (int i = 0; i < nodes.size(); ++i)
            if (nodes[i].parent == parent) text += QString(depth * 2, ' ') + nodes[i].text + '\n' + draw(i, depth + 1);
        return text;
    };
    return draw(-1, 0).toStdString();
}

}

TEST(FolderTree, RootStandsBesideTheFirstLevelAndMissingParentsAreMadeUp)
{
    EXPECT_EQ(drawn({"\\BIN\\", "\\", "\\ALPHA\\DOC\\HTML\\", "\\ALPHA\\SRC\\"}),
              "...\nALPHA\n  DOC\n    HTML\n  SRC\nBIN\n");
    // By characters "A B" comes between "A" and what is in it; letters differ by case.
    EXPECT_EQ(drawn({"\\A\\", "\\A B\\", "\\A\\ONE\\", "\\a\\", "\\a\\TWO\\", "\\A!\\"}),
              "A\n  ONE\nA B\nA!\na\n  TWO\n");
}

TEST(FolderTree, SamePlaceAndLettersCountAsTheSameFolder)
{
    EXPECT_EQ(drawn({"\\A\\X\\", "\\B\\X\\DEEP\\"}), "A\n  X\nB\n  DEEP\n");
    EXPECT_EQ(drawn({"\\A\\X\\", "\\B\\", "\\B\\X\\"}), "A\n  X\nB\n  X\n") << "as a scan makes it, nothing is lost";
    EXPECT_EQ(drawn({"\\A\\X\\", "\\BB\\X\\"}), "A\n  X\nBB\n  X\n") << "the same letters at another place";
}

TEST(FolderTree, PathsThatNoScanMakesAreRefusedOrEndSoon)
{
    for (const QString empty : {"\\\\A\\", "\\\\", "\\A\\\\B\\", "A\\"})
        EXPECT_THROW(BuildFolderTree({empty}), RuntimeError) << qPrintable(empty);
    EXPECT_EQ(drawn({"", "X", "XA\\B\\", "\\C\\D"}), "C\nA\n  B\n");
    EXPECT_EQ(BuildFolderTree({"\\" + QString("d\\").repeated(40)}).size(), 40);
    EXPECT_THROW(BuildFolderTree({"\\" + QString("d\\").repeated(41)}), RuntimeError);
}

TEST(FolderModel, KeepsTheRulesOfModelsAndKnowsPaths)
{
    FolderModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (const QStringList& paths : {QStringList{"\\A\\X\\", "\\B\\X\\"}, {}, {"\\", "\\A\\", "\\A\\B\\", "\\C\\"}})
        model.setNodes(BuildFolderTree(paths));
    QStringList paths;
    for (int node = 0; node < 4; ++node) paths += model.pathAt(model.indexOf(node));
    EXPECT_EQ(paths, (QStringList{"\\", "\\A\\", "\\A\\B\\", "\\C\\"}));
}
