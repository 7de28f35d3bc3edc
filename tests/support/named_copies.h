#pragma once

#include "platform/store_copies.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace hourwright::test {

/// Copies that are only names; which are damaged is said from outside.
class NamedCopies : public platform::StoreCopies {
public:
    std::vector<platform::StoreCopy> all;
    std::set<std::string> damaged;
    std::set<std::string> withoutDescription;
    std::vector<std::string> verified;
    std::string written = "records"; ///< what the present records look like
    bool cancels = false;
    std::vector<std::string> restored;
    platform::RestoreOutcome outcome = platform::RestoreOutcome::failed; ///< of restoring

    [[nodiscard]] std::vector<platform::StoreCopy> list() override { return those(false); }
    [[nodiscard]] std::vector<platform::StoreCopy> unreadable() override { return those(true); }
    [[nodiscard]] platform::SourceStamps present() override { return {.records = {written}, .settings = {}}; }
    [[nodiscard]] const std::filesystem::path& folder() const override { return folder_; }
    [[nodiscard]] platform::MadeCopy make(const platform::SystemTime& now, const platform::KeepGoing&) override {
        const platform::StoreCopy copy{
            .name = platform::copyNameAt(now), .time = now, .source = {.records = {written}, .settings = {}}};
        all.insert(all.begin(), copy);
        return {.outcome = platform::CopyOutcome::done, .reason = {}, .copy = copy};
    }
    [[nodiscard]] platform::CopyHealth verify(const platform::StoreCopy& copy, const platform::KeepGoing&) override {
        verified.push_back(copy.name);
        if (cancels)
            return platform::CopyHealth::cancelled;
        return isSound(copy) ? platform::CopyHealth::sound : platform::CopyHealth::damaged;
    }
    bool remove(const platform::StoreCopy& copy) override {
        return std::erase_if(all, [&](const platform::StoreCopy& other) { return other.name == copy.name; }) == 1;
    }
    [[nodiscard]] platform::RestoredCopy restore(const platform::StoreCopy& copy, platform::CopyPart,
                                                 const platform::SystemTime&) override {
        restored.push_back(copy.name);
        return {.outcome = outcome, .error = {}, .kept = {}};
    }

    [[nodiscard]] bool isSound(const platform::StoreCopy& copy) const {
        return !damaged.contains(copy.name) && !withoutDescription.contains(copy.name);
    }
    [[nodiscard]] bool has(const platform::SystemTime& time) const {
        return std::ranges::find(all, platform::copyNameAt(time), &platform::StoreCopy::name) != all.end();
    }
    [[nodiscard]] std::size_t soundOnes() const {
        return static_cast<std::size_t>(
            std::ranges::count_if(all, [this](const platform::StoreCopy& copy) { return isSound(copy); }));
    }

private:
    std::vector<platform::StoreCopy> those(bool unreadable) {
        std::vector<platform::StoreCopy> found;
        for (const platform::StoreCopy& copy : all)
            if (withoutDescription.contains(copy.name) == unreadable)
                found.push_back(copy);
        return found;
    }

    std::filesystem::path folder_ = "/nonexistent";
};

} // namespace hourwright::test
