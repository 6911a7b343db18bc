#include "contents/ScanOptions.h"

#include "platform/Literals.h"

static constexpr int Buffer = 2;

static constexpr struct {
    QStringView key;
    bool ScanOptions::*option;
} Keys[] = {
    {u"FilesInCore", &ScanOptions::filesInCore},
    {u"ScanDir", &ScanOptions::scanDir},
    {u"ScanDirOnly", &ScanOptions::scanDirOnly},
    {u"InfoMP3", &ScanOptions::infoMP3},
    {u"Filter", &ScanOptions::filter},
    {u"HiddenFiles", &ScanOptions::hiddenFiles},
    {u"LCase", &ScanOptions::lCase},
    {u"Share", &ScanOptions::share},
    {u"FilterPar", &ScanOptions::wantedFiles},
};

static bool kept(const Profile& settings) { return Val(settings.read(u"Option", u"SaveFileListOption").left(1)) == 1; }

void ReadScanOptions(const Profile& settings, ScanOptions& options)
{
    if (!kept(settings)) return;
    for (const auto& [key, option] : Keys)
        if (settings.has(u"FileListOption", key))
            options.*option = settings.number(u"FileListOption", key, Buffer) == 1;
}

bool WriteScanOptions(const Profile& settings, const ScanOptions& options)
{
    if (!kept(settings)) return true;
    Profile::Entries entries;
    for (const auto& [key, option] : Keys) entries.append({key.toString(), options.*option ? u"1"_s : u"0"_s});
    return settings.write(u"FileListOption", entries);
}
