#pragma once

#include "resources/text.h"

/// Titles of periods and the bar that moves through them.
namespace hourwright::resources::periods {

inline constexpr Text weekOf{10200, u"Week Of "};
inline constexpr Text fromTo{10201, u"From %s To %s"};
inline constexpr Text weekNumber{10202, u" · Week %s"};

inline constexpr Text previous{10210, u"Previous Period"};
inline constexpr Text next{10211, u"Next Period"};
inline constexpr Text today{10212, u"Today"};
inline constexpr Text pickDate{10213, u"Choose a date"};
inline constexpr Text newItem{10214, u"New"};
inline constexpr Text showMenu{10215, u"View"};
inline constexpr Text timeEntries{10216, u"Time"};
inline constexpr Text expenses{10217, u"Expenses"};

inline constexpr Text oneItem{10220, u"1 item"};
inline constexpr Text items{10221, u"%d items"};
inline constexpr Text selectedItems{10222, u"%d selected"};

inline constexpr Text filterOn{10230, u"Filter: %s"};
inline constexpr Text clearFilter{10231, u"Show All"};

inline constexpr Text emptyTitle{10240, u"Nothing is recorded yet"};
inline constexpr Text emptyHint{10241,
                                u"Set up a client with its rates, record your first hours, or look around in made-up "
                                u"records first."};
inline constexpr Text addClient{10242, u"Add a &Client..."};
inline constexpr Text addEntry{10243, u"Add a T&ime Entry..."};
inline constexpr Text loadDemo{10244, u"&Load the Demo"};
inline constexpr Text demoLoaded{10245, u"Load the Demo"};

} // namespace hourwright::resources::periods
