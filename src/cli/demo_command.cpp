#include "app/demo/demo_store.h"
#include "cli/handlers.h"
#include "cli/note_argument.h"
#include "cli/session.h"

namespace hourwright::cli {

namespace {

using app::demo::DemoResult;

constexpr std::uint32_t defaultEntries = 1000;

app::demo::DemoOptions optionsOf(Session& session, const Arguments& arguments) {
    app::demo::DemoOptions options;
    const auto entries = arguments.value(option::entries);
    const auto seed = arguments.value(option::seed);
    options.entries = entries ? numberOf(*entries) : defaultEntries;
    options.seed = seed ? numberOf(*seed) : 1;
    options.lastDay = session.clock().localTime();
    return options;
}

} // namespace

ExitCode demo(Session& session, const Arguments& arguments) {
    store::Stores* const stores = session.stores();
    if (!stores)
        return ExitCode::refused;
    const auto encodeNote = [](std::u16string_view text) { return noteOfText(text).blob; };
    switch (app::demo::fillWithDemoHistory(*stores, optionsOf(session, arguments), encodeNote)) {
    case DemoResult::done: return ExitCode::done;
    case DemoResult::notEmpty:
        return session.fail(platform::PlatformError::alreadyExists, "The store holds records already.");
    case DemoResult::failed: break;
    }
    return session.failWrite();
}

} // namespace hourwright::cli
