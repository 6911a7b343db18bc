#include "contents/FileListScanner.h"

#include "contents/FileSizeText.h"
#include "contents/Mp3Tag.h"
#include "store/Schema.h"

#include <array>
#include <new>
#include <vector>

namespace {

constexpr int OutOfMemory = 7;

bool isReadingError(int number)
{
    constexpr std::array<int, 4> numbers{5, 52, 53, 76};
    return number < 0 || std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

struct Level {
    QString folder;
    QStringList subfolders; // still to be visited, from the end
    QList<DiscEntry> files;
    double share; // of each subfolder, and of the files
};

/// How the work on one folder ended.
enum class Outcome { Done, BrokenOff };

class Walk {
public:
    Walk(Disc& disc, const ScanRules& rules, const std::function<void(const FileRow&)>& store, ScanWatcher& watcher)
        : disc(disc), rules(rules), store(store), watcher(watcher)
    {}

    void run()
    {
        enter(u"\\"_s, 1);
        while (!levels.empty()) {
            if (running && !levels.back().subfolders.isEmpty()) {
                const QString child = levels.back().folder + levels.back().subfolders.takeLast() + u'\\';
                if (enter(child, levels.back().share) == Outcome::BrokenOff) levels.pop_back();
                continue;
            }
            const Level level = std::move(levels.back());
            levels.pop_back();
            if (guarded([&] { list(level); }) == Outcome::BrokenOff && !levels.empty()) levels.pop_back();
            walked += level.share;
        }
    }

private:
    /// Puts the folder on the levels, unless it cannot be read.
    Outcome enter(const QString& folder, double share)
    {
        running = watcher.entering(folder);
        if (!running) return Outcome::BrokenOff;
        const std::size_t depth = levels.size();
        const Outcome outcome = guarded([&] {
            if (folder.size() > FieldLength::FolderPath) {
                if (!rules.folders) return; // neither it nor what is below would have a row
                throw DiscError(u"Путь «%1» длиннее %2 символов."_s.arg(folder).arg(FieldLength::FolderPath));
            }
            Level level{folder, {}, {}, share};
            for (const DiscEntry& entry : disc.list(folder)) {
                if (entry.folder)
                    level.subfolders += entry.name;
                else if (!entry.hidden || rules.hiddenFiles)
                    level.files += entry;
            }
            level.share /= double(level.subfolders.size() + 1);
            levels.push_back(std::move(level));
        });
        if (levels.size() == depth) walked += share;
        return outcome;
    }

    void list(const Level& level)
    {
        const bool root = level.folder.size() == 1;
        watcher.listing(level.folder, level.files.size(), {walked, level.share});
        if (root || rules.folders) keep({level.folder, level.folder, u"0"_s, {}});
        if (!(root ? rules.rootFiles : rules.folders) || rules.foldersOnly) return;
        for (qsizetype i = 0; i < level.files.size(); ++i) {
            const DiscEntry& file = level.files[i];
            if (!watcher.file(i, file.name)) {
                running = false;
                return;
            }
            if (rules.filter && rules.filter->FindFileInFiltr(file.name)) continue;
            if (file.name.isEmpty() || file.name.size() > FieldLength::FileName)
                throw DiscError(u"Недопустимое имя файла в папке «%1»."_s.arg(level.folder));
            keep({rules.lowerCase ? file.name.toLower().left(FieldLength::FileName) : file.name, level.folder,
                  FileSizeText(file.size),
                  rules.tags && file.name.contains(u".mp3"_s, Qt::CaseInsensitive) ? tagOf(level.folder, file)
                                                                                   : QString()});
        }
    }

    QString tagOf(const QString& folder, const DiscEntry& file)
    {
        tag.read(folder + file.name, {file.size, [&](qint64 offset, qint64 length) {
                                          return disc.read(folder, file.name, offset, length);
                                      }});
        return (tag.artist() + u" - "_s + tag.title()).left(FieldLength::Comment);
    }

    void keep(const FileRow& row)
    {
        storing = true;
        store(row);
        storing = false;
    }

    /// What goes wrong on the disc costs the rest of one folder. What `store` throws is not the disc's.
    template<class Work> Outcome guarded(Work work)
    {
        try {
            work();
            return Outcome::Done;
        } catch (const std::bad_alloc&) {
            if (storing) throw;
            return Outcome::BrokenOff;
        } catch (const RuntimeError& error) {
            if (storing) throw;
            if (error.number() == OutOfMemory) return Outcome::BrokenOff;
            if (!isReadingError(error.number())) throw;
            watcher.readingError(error);
            return Outcome::Done;
        }
    }

    Disc& disc;
    const ScanRules& rules;
    const std::function<void(const FileRow&)>& store;
    ScanWatcher& watcher;
    std::vector<Level> levels;
    MP3TagEditor tag;
    double walked = 0;
    bool running = true;
    bool storing = false;
};

}

void CreateFileList(Disc& disc, const ScanRules& rules, const std::function<void(const FileRow&)>& store,
                    ScanWatcher& watcher)
{
    Walk(disc, rules, store, watcher).run();
}
