#pragma once

#include "resources/text.h"

/// Labels of the dialogs that set up clients, rates and lists.
namespace hourwright::resources::structure {

inline constexpr Text setupClients{11100, u"Setup Clients"};
inline constexpr Text search{11101, u"Search clients, projects, tasks, contacts"};
inline constexpr Text treeName{11102, u"Clients"};
inline constexpr Text nameColumn{11103, u"Name"};
inline constexpr Text kindColumn{11104, u"Kind"};
inline constexpr Text add{11105, u"&Add"};
inline constexpr Text edit{11106, u"&Edit..."};
inline constexpr Text remove{11107, u"&Delete"};
inline constexpr Text migrate{11108, u"&Migrate..."};
inline constexpr Text noProject{11109, u"(no name)"};
inline constexpr Text summary{11115, u"&Summary..."};

inline constexpr Text client{11110, u"Client"};
inline constexpr Text project{11111, u"Project"};
inline constexpr Text task{11112, u"Task"};
inline constexpr Text contact{11113, u"Contact"};
inline constexpr Text rate{11114, u"Rate"};

inline constexpr Text addClient{11120, u"&Client..."};
inline constexpr Text addProject{11121, u"&Project..."};
inline constexpr Text addProjectTask{11122, u"&Task of the Project..."};
inline constexpr Text addTask{11123, u"Task of the Client (&no Project)..."};
inline constexpr Text addContact{11124, u"C&ontact..."};
inline constexpr Text addRate{11125, u"&Rate..."};

inline constexpr Text newClientTitle{11130, u"New Client"};
inline constexpr Text newTitle{11131, u"New %1 for %2"};
inline constexpr Text renameTitle{11132, u"Rename %1"};
inline constexpr Text nameLabel{11133, u"&Name:"};
inline constexpr Text carry{11134, u"&Change existing entries and expenses too"};

inline constexpr Text undoAdd{11140, u"Add %1"};
inline constexpr Text undoRename{11141, u"Rename %1"};
inline constexpr Text undoDelete{11142, u"Delete %1"};
inline constexpr Text undoMigrate{11143, u"Migrate Projects and Tasks"};
inline constexpr Text undoRate{11144, u"Change Rate"};
inline constexpr Text undoDeleteRate{11145, u"Delete Rate"};
inline constexpr Text undoList{11146, u"Change Drop List"};

inline constexpr Text migrateTitle{11150, u"Migrate from %1"};
inline constexpr Text migrateTo{11151, u"Migrate &to:"};
inline constexpr Text checkProjects{11152, u"Check &Projects to migrate:"};
inline constexpr Text checkTasks{11153, u"Check Tas&ks to migrate:"};
inline constexpr Text migrateHint{11154, u"Entries and expenses keep their client."};

inline constexpr Text setupRates{11160, u"Setup Rates"};
inline constexpr Text clientLabel{11161, u"&Client:"};
inline constexpr Text ratesName{11162, u"Rates"};
inline constexpr Text typeColumn{11163, u"Type"};
inline constexpr Text descriptionColumn{11164, u"Description"};
inline constexpr Text rateColumn{11165, u"Rate"};
inline constexpr Text modifiedColumn{11166, u"Last Modified"};
inline constexpr Text addPlain{11167, u"&Add..."};
inline constexpr Text rateTitle{11170, u"Rate for %1"};
inline constexpr Text rateType{11171, u"Rate &Type:"};
inline constexpr Text description{11172, u"&Description:"};
inline constexpr Text rateText{11173, u"&Rate:"};
inline constexpr Text lastModified{11174, u"Last Modified:"};
inline constexpr Text neverModified{11175, u"<New>"};

inline constexpr Text dropLists{11180, u"Edit Drop Lists"};
inline constexpr Text listLabel{11181, u"&List:"};
inline constexpr Text itemsName{11182, u"Items of the list"};
inline constexpr Text phases{11183, u"Phases"};
inline constexpr Text currencies{11184, u"Currencies"};
inline constexpr Text categories{11185, u"Expense Categories"};
inline constexpr Text descriptions{11186, u"Expense Descriptions"};
inline constexpr Text newItem{11187, u"New Item"};
inline constexpr Text changeItem{11188, u"Change Item"};
inline constexpr Text textLabel{11189, u"&Text:"};
inline constexpr Text change{11190, u"C&hange..."};

} // namespace hourwright::resources::structure
