#include "platform/DeviceContents.h"

#include "platform/Literals.h"
#include "platform/disc/CdText.h"

#include <QtEndian>
#include <algorithm>
#include <linux/cdrom.h>
#include <linux/fs.h>
#include <scsi/sg.h>

namespace {
constexpr int SectorSize = 2048;

template<class Structure> bool Ask(CdDevice& device, unsigned long request, Structure& structure)
{
    return device.ioctl(request, reinterpret_cast<std::intptr_t>(&structure)) >= 0;
}

/// Sector addresses, not minutes: those of a DVD do not fit.
bool ReadEntry(CdDevice& device, int track, cdrom_tocentry& entry)
{
    entry = {};
    entry.cdte_track = __u8(track);
    entry.cdte_format = CDROM_LBA;
    return Ask(device, CDROMREADTOCENTRY, entry) && entry.cdte_addr.lba >= -LeadInFrames &&
           entry.cdte_addr.lba < 1 << 30;
}

bool ReadTracks(CdDevice& device, TableOfContents& contents)
{
    cdrom_tochdr header{};
    if (!Ask(device, CDROMREADTOCHDR, header)) return false;
    if (header.cdth_trk0 < 1 || header.cdth_trk0 > header.cdth_trk1 || header.cdth_trk1 > 99) return false;
    cdrom_tocentry entry;
    for (int number = header.cdth_trk0; number <= header.cdth_trk1; ++number) {
        if (!ReadEntry(device, number, entry)) return false;
        const bool audio = (entry.cdte_ctrl & CDROM_DATA_TRACK) == 0;
        contents.tracks.append({number, audio, Msf::fromFrames(entry.cdte_addr.lba + LeadInFrames), {}, {}});
    }
    if (!ReadEntry(device, CDROM_LEADOUT, entry)) return false;
    contents.leadOut = Msf::fromFrames(entry.cdte_addr.lba + LeadInFrames);
    return true;
}

/// READ TOC/PMA/ATIP, format 0101b (MMC-3, 5.23). Most discs have no CD-TEXT and many drives cannot read it: both mean
/// that there are no titles.
void AddCdText(CdDevice& device, TableOfContents& contents)
{
    constexpr int headerSize = 4, packs = 255, packSize = 18;
    QByteArray answer(headerSize + packs * packSize, '\0');
    unsigned char command[10] = {0x43, 0, 5};
    qToBigEndian(quint16(answer.size()), command + 7);
    unsigned char sense[32] = {};

    sg_io_hdr request{};
    request.interface_id = 'S';
    request.dxfer_direction = SG_DXFER_FROM_DEV;
    request.cmdp = command;
    request.cmd_len = sizeof command;
    request.dxferp = answer.data();
    request.dxfer_len = unsigned(answer.size());
    request.sbp = sense;
    request.mx_sb_len = sizeof sense;
    request.timeout = 10000; // milliseconds
    if (!Ask(device, SG_IO, request) || (request.info & SG_INFO_OK_MASK) != SG_INFO_OK) return;

    const qsizetype length = qFromBigEndian<quint16>(answer.constData()) + 2;
    const qsizetype received = answer.size() - std::clamp<qsizetype>(request.resid, 0, answer.size());
    const QByteArrayView text = QByteArrayView(answer).first(std::min({length, received, answer.size()}));
    if (text.size() > headerSize) ReadCdText(text.sliced(headerSize), contents);
}
}

TableOfContents ReadDeviceContents(CdDevice& device)
{
    TableOfContents contents;
    if (ReadTracks(device, contents)) {
        if (std::any_of(contents.tracks.begin(), contents.tracks.end(), [](const DiscTrack& t) { return t.audio; }))
            AddCdText(device, contents);
        return contents;
    }
    const qint64 sectors = ReadMediumSize(device) / SectorSize;
    if (sectors == 0 || sectors > 1 << 30) throw DiscError(u"Диск пуст или не читается."_s);
    contents = {};
    contents.tracks.append({1, false, Msf::fromFrames(LeadInFrames), {}, {}});
    contents.leadOut = Msf::fromFrames(LeadInFrames + int(sectors));
    return contents;
}

quint32 ReadLastSession(CdDevice& device)
{
    cdrom_multisession session{};
    session.addr_format = CDROM_LBA;
    return Ask(device, CDROMMULTISESSION, session) && session.xa_flag && session.addr.lba > 0
               ? quint32(session.addr.lba)
               : 0;
}

qint64 ReadMediumSize(CdDevice& device)
{
    quint64 bytes = 0;
    return Ask(device, BLKGETSIZE64, bytes) && bytes < quint64(1) << 50 ? qint64(bytes) : 0;
}
