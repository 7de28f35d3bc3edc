#pragma once

#include "resources/text.h"

/// The timers' windows.
namespace hourwright::resources::timers {

inline constexpr Text add{11300, u"&Add Timer..."};
inline constexpr Text pause{11301, u"&Pause"};
inline constexpr Text edit{11302, u"&Edit..."};
inline constexpr Text complete{11303, u"C&omplete Timer..."};
inline constexpr Text cancel{11304, u"&Cancel Timer"};
inline constexpr Text timer{11305, u"Timer %s"};
inline constexpr Text watchIdle{11306, u"Ask After &Idle Time"};
inline constexpr Text showTray{11307, u"Show in the &Tray"};
inline constexpr Text menu{11308, u"&Menu"};
inline constexpr Text close{11309, u"Close"};
inline constexpr Text choose{11310, u"&Timer"};

inline constexpr Text duration{11320, u"Duration"};
inline constexpr Text start{11321, u"Start"};
inline constexpr Text breakTime{11322, u"Break"};
inline constexpr Text note{11323, u"&Note:"};
inline constexpr Text running{11324, u"running"};
inline constexpr Text paused{11325, u"paused"};
inline constexpr Text none{11326, u"No timer is running. Add one, and it counts while you work."};

inline constexpr Text client{11330, u"&Client:"};
inline constexpr Text project{11331, u"&Project:"};
inline constexpr Text phase{11332, u"P&hase:"};
inline constexpr Text task{11333, u"&Task:"};
inline constexpr Text startTime{11334, u"&Start Time:"};

inline constexpr Text stopped{11340, u"The timer is currently stopped while being edited."};
inline constexpr Text editDuration{11341, u"&Duration: (H:M:S)"};
inline constexpr Text editBreak{11342, u"&Break time: (H:M:S)"};
inline constexpr Text hours{11343, u"Hours"};
inline constexpr Text minutes{11344, u"Minutes"};
inline constexpr Text seconds{11345, u"Seconds"};

inline constexpr Text doubtTitle{11350, u"Check the Timer"};
inline constexpr Text doubtGap{11351, u"Timer %1 (%2) went on for %3 while the machine slept."};
inline constexpr Text doubtIdle{11352, u"Timer %1 (%2) went on for %3 while nobody used the machine."};
inline constexpr Text doubtDay{11353, u"Timer %1 (%2) has been running for more than a day; the last activity was %3 ago."};
inline constexpr Text keep{11354, u"&Keep the Time"};
inline constexpr Text trim{11355, u"&Trim to the Last Activity"};
inline constexpr Text split{11356, u"&Split in Two"};
inline constexpr Text noTimerName{11357, u"without a name"};

inline constexpr Text recoverTitle{11360, u"Timers"};
inline constexpr Text recover{11361, u"Hourwright did not end properly while timers were running:"};
inline constexpr Text recoverGoOn{11362, u"&Go On With Them"};
inline constexpr Text recoverCount{11363, u"Go On and Co&unt the Time Since"};
inline constexpr Text recoverDrop{11364, u"&Discard Them"};

inline constexpr Text trayIdle{11370, u"Hourwright: no timer runs"};
inline constexpr Text trayShow{11371, u"&Show Hourwright"};

} // namespace hourwright::resources::timers
