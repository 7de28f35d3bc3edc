#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// The made-up names and texts. Some are not Latin or not in one code page, as those of real clients are.
namespace hourwright::app::demo::texts {

using Text = std::u16string_view;

inline constexpr auto clients = std::to_array<Text>({
    u"Alder & Finch",
    u"Bellwater Foods",
    u"Caf\u00E9 Lumi\u00E8re",
    u"Dorrance Shipping",
    u"Eastgate Clinics",
    u"Fjellkraft \u00D8st",
    u"Grunewald Stra\u00DFenbau",
    u"Harrow Press",
    u"Iris Optics",
    u"Juniper Hotels",
    u"Kestrel Air Cargo",
    u"Larkspur Schools",
    u"Meridian Tools",
    u"Norwood Credit Union",
    u"Oak Hill Farms",
    u"Pemberton Rail",
    u"Quarry Lane Theatre",
    u"Riverside Printing",
    u"Saltmarsh Energy",
    u"Tamarind Textiles",
    u"Upton Pharmacy",
    u"Vale Instruments",
    u"Westhaven Council",
    u"Xanthe Cosmetics",
    u"Yarrow Insurance",
    u"Zephyr Cycles",
    u"Ashdown Glass",
    u"Brackenfield Dairy",
    u"Copperline Studios",
    u"Dunmore Legal",
    u"\u0141\u0105ka Ogrody",
    u"Foxglove Media",
    u"Glenbrook Software",
    u"Hollins \"H2\" Water",
    u"Ivybridge Museum",
    u"\u9752\u6728\u51FA\u7248",
    u"Kingsmead Motors",
    u"Lindqvist M\u00F6bler",
    u"Marlow, Pike & Sons",
    u"Northlight Charity",
});

inline constexpr auto projects = std::to_array<Text>({
    u"Web shop",
    u"Data warehouse",
    u"Payroll move",
    u"Stock control",
    u"Annual audit",
    u"Customer portal",
    u"Network renewal",
    u"Staff training",
    u"Office move",
    u"Brand relaunch",
    u"Quality manual",
    u"Price study",
    u"Branch roll-out",
    u"Archive scan",
    u"Energy survey",
    u"Booking system",
});

inline constexpr auto tasks = std::to_array<Text>({
    u"Review",
    u"Workshop",
    u"Interviews",
    u"Report",
    u"Programming",
    u"Testing",
    u"Project management",
    u"Presentation",
    u"Data clean-up",
    u"Documentation",
    u"User support",
    u"Planning",
    u"Research",
    u"Prototype",
    u"Migration",
});

inline constexpr auto clientTasks = std::to_array<Text>({u"Phone call", u"Travel", u"Meeting", u"Administration"});

inline constexpr auto phases =
    std::to_array<Text>({u"Analysis", u"Design", u"Build", u"Acceptance", u"Roll-out", u"Support"});

inline constexpr auto places = std::to_array<Text>({u"On site", u"Remote", u"Office"});

inline constexpr auto firstNames = std::to_array<Text>({
    u"Anna",
    u"Bj\u00F6rn",
    u"Clara",
    u"David",
    u"Elif",
    u"Farid",
    u"Grace",
    u"Hanna",
    u"Ivo",
    u"June",
    u"Karol",
    u"Lena",
    u"Milo",
    u"Nadia",
    u"Oscar",
    u"Priya",
});

inline constexpr auto lastNames = std::to_array<Text>({
    u"Abbott",
    u"Berg",
    u"Castell",
    u"Dahl",
    u"Eriksen",
    u"Fuller",
    u"Garc\u00EDa",
    u"Holt",
    u"Ives",
    u"Jansen",
    u"Kowalski",
    u"Lund",
    u"M\u00FCller",
    u"Novak",
    u"Okafor",
    u"Price",
});

struct WeightedText {
    Text text;
    std::uint32_t weight;
};
inline constexpr auto currencies =
    std::to_array<WeightedText>({{u"USD", 60}, {u"EUR", 22}, {u"GBP", 10}, {u"CHF", 5}, {u"CAD", 3}});

/// Kinds of expenses, with their descriptions and amounts in whole currency units.
struct ExpenseKind {
    Text category;
    Text description;
    std::uint32_t least, most;
};
inline constexpr auto expenses = std::to_array<ExpenseKind>({
    {u"Meals", u"Lunch with client", 18, 95},
    {u"Meals", u"Dinner, workshop team", 60, 340},
    {u"Travel", u"Train ticket", 22, 180},
    {u"Travel", u"Taxi", 9, 60},
    {u"Travel", u"Parking", 3, 28},
    {u"Lodging", u"Hotel", 85, 240},
    {u"Material", u"Printing and binding", 12, 130},
    {u"Software", u"Licence, one month", 15, 90},
});
inline constexpr auto drives = std::to_array<Text>({u"Drive to client", u"Drive to airport", u"Drive between sites"});

inline constexpr auto notes = std::to_array<Text>({
    u"Went through the open points with the team. Two are left for next week.",
    u"Minutes sent by e-mail.\r\nNext appointment to be confirmed.",
    u"Delayed by the network: half an hour not charged.",
    u"Draft finished, figures of the last quarter are still missing.",
    u"Agreed:\r\n- first delivery at the end of the month\r\n- acceptance by the department\r\n- training afterwards",
    u"Customer wants the price in \u20AC and with \u201Ctravel included\u201D.",
    u"Called back twice, nobody there.",
    u"Done at a discount as agreed, see the letter of intent.",
    u"Found the cause: dates were read as month/day. Corrected and tested with last year's data.",
    u"Prepared slides; 24 pages, to be cut.",
    u"R\u00E9union avec la direction: budget accord\u00E9.",
    u"R\u00FCckfrage zur \u00DCbergabe beantwortet.",
    u"Copied the archive.\r\n\r\nTook longer than planned because of damaged media.",
    u"Short check after the update, no findings.",
});

} // namespace hourwright::app::demo::texts
