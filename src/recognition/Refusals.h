#pragma once

#include "platform/Literals.h"

/// Why a command does not work on what is in the drive, as all screens say it.
namespace Refusal {
inline const QString NoDrive = u"Устройство для чтения компакт-дисков не найдено!"_s;
inline const QString NoDisc = u"Вставьте диск в устройство для чтения компакт-дисков и повторите операцию."_s;
inline const QString NoAudioDisc =
    u"Вставьте Аудио диск в устройство для чтения компакт-дисков и повторите операцию."_s;
inline const QString NoIdentifier =
    u"В устройстве для чтения компакт дисков вставлен диск без идентификационного номера (возможно, что диск записан в "
    u"формате PacketCD, который не поддерживается программой)!"_s;
}
