#include "contents/FolderTree.h"

#include "harness/Print.h"
#include "platform/RuntimeError.h"

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
            if (nodes[i].parent == parent)
                text += QString(depth * 2, u' ') + nodes[i].text + u'\n' + draw(i, depth + 1);
        return text;
    };
    return draw(-1, 0).toStdString();
}

QString deep(int levels)
{
    QString path = u"\\"_s;
    for (int i = 0; i < levels; ++i) path += u"L%1\\"_s.arg(i);
    return path;
}

}

TEST(FolderTree, RootStandsBesideTheFirstLevel)
{
    EXPECT_EQ(drawn({}), "");
    EXPECT_EQ(drawn({u"\\"_s}), "...\n");
    EXPECT_EQ(drawn({u"\\BIN\\"_s, u"\\"_s, u"\\ALPHA\\DOC\\"_s, u"\\ALPHA\\"_s, u"\\ALPHA\\DOC\\HTML\\"_s,
                     u"\\ALPHA\\SRC\\"_s}),
              "...\n"
              "ALPHA\n"
              "  DOC\n"
              "    HTML\n"
              "  SRC\n"
              "BIN\n");
}

TEST(FolderTree, MissingParentsAreMadeUp) { EXPECT_EQ(drawn({u"\\ALPHA\\DOC\\HTML\\"_s}), "ALPHA\n  DOC\n    HTML\n"); }

TEST(FolderTree, SubfoldersFollowTheirFolderWhateverTheCollation)
{
    // By characters "A B" comes between "A" and what is in it; letters differ by case.
    EXPECT_EQ(drawn({u"\\A\\"_s, u"\\A B\\"_s, u"\\A\\ONE\\"_s, u"\\a\\"_s, u"\\a\\TWO\\"_s, u"\\A!\\"_s}),
              "A\n  ONE\nA B\nA!\na\n  TWO\n");
}

TEST(FolderTree, SamePlaceAndLettersCountAsTheSameFolder)
{
    EXPECT_EQ(drawn({u"\\A\\X\\"_s, u"\\B\\X\\"_s}), "A\n  X\nB\n");
    EXPECT_EQ(drawn({u"\\A\\X\\"_s, u"\\B\\X\\DEEP\\"_s}), "A\n  X\nB\n  DEEP\n");
    // With the folder's own row between them, as a scan makes it, nothing is lost.
    EXPECT_EQ(drawn({u"\\A\\X\\"_s, u"\\B\\"_s, u"\\B\\X\\"_s}), "A\n  X\nB\n  X\n");
    // The same letters elsewhere are not the same folder.
    EXPECT_EQ(drawn({u"\\A\\X\\"_s, u"\\BB\\X\\"_s}), "A\n  X\nBB\n  X\n");
}

TEST(FolderTree, FortyLevelsAndNoMore)
{
    const QList<FolderNode> nodes = BuildFolderTree({deep(40)});
    EXPECT_EQ(nodes.size(), 40);
    EXPECT_EQ(FolderPathOf(nodes, 39), deep(40));
    EXPECT_THROW(BuildFolderTree({deep(41)}), RuntimeError);
}

TEST(FolderTree, NodesKnowTheirPath)
{
    const QList<FolderNode> nodes = BuildFolderTree({u"\\"_s, u"\\A\\"_s, u"\\A\\B\\"_s});
    EXPECT_EQ(FolderPathOf(nodes, 0), u"\\"_s);
    EXPECT_EQ(FolderPathOf(nodes, 1), u"\\A\\"_s);
    EXPECT_EQ(FolderPathOf(nodes, 2), u"\\A\\B\\"_s);
}
