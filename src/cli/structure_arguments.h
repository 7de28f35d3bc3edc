#pragma once

#include "billing/structure_deletion.h"
#include "billing/structure_names.h"
#include "cli/session.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// What the commands of the client structure have in common. Where nothing is returned, the message has been shown.
namespace hourwright::cli {

using NameCheck = std::optional<billing::NameRefusal> (*)(std::u16string_view);

/// A name from the command line that passes its check.
[[nodiscard]] std::optional<std::u16string> nameArgument(Session& session, std::string_view text,
                                                         NameCheck check = billing::checkName);

/// The client of that name.
[[nodiscard]] std::optional<store::ClientRecord> clientArgument(Session& session, store::Stores& stores,
                                                                std::string_view name);

/// The owner of rates: the client of that name, or everybody for "(Default Rates)".
[[nodiscard]] std::optional<std::uint32_t> rateOwnerArgument(Session& session, store::Stores& stores,
                                                             std::string_view name);

/// Opens the stores and changes them in one transaction of that name, which is committed when `work` is done.
[[nodiscard]] ExitCode changeStores(Session& session, const resources::Text& name,
                                    const std::function<ExitCode(platform::Transaction&, store::Stores&)>& work);

/// Shows that a store could not be read.
ExitCode failStructureRead(Session& session, store::Stores& stores);

/// Adds the name that stands behind the client on the command line to that client.
using AddName = std::optional<store::RecordId> (*)(platform::Transaction&, store::Stores&, std::uint32_t,
                                                   std::u16string_view);
[[nodiscard]] ExitCode addNamed(Session& session, const Arguments& arguments, const resources::Text& step, AddName add);

/// The node of the client's first record that matches, without an id when there is none; nothing when reading failed.
template<typename Record, typename Node, typename Match>
[[nodiscard]] std::optional<billing::StructureNode> findNode(store::Stores& stores, std::uint32_t clientId,
                                                             Match match) {
    const auto records = store::recordsOf<Record>(stores, clientId);
    if (!records)
        return std::nullopt;
    const auto found = std::ranges::find_if(*records, match);
    return Node{found != records->end() ? found->id : store::RecordId::none};
}

/// Deletes a node that `findNode` has looked for; one without an id is gone already.
[[nodiscard]] ExitCode deleteFound(Session& session, store::Stores& stores, const resources::Text& step,
                                   const std::optional<billing::StructureNode>& node);

/// Deletes a node, after its question if it has one.
[[nodiscard]] ExitCode deleteNode(Session& session, store::Stores& stores, const resources::Text& step,
                                  const billing::StructureNode& node);

/// Ends a command that asked before it deleted.
[[nodiscard]] ExitCode endDeletion(Session& session, billing::Deletion result);

} // namespace hourwright::cli
