#pragma once

#include "exchange/text_sink.h"
#include "platform/file_writer.h"

#include <string_view>

namespace hourwright::cli {

/// What a command prints. A failed write is remembered, so that commands need not look after every piece: the command
/// has failed when `finish` says so. Walks ask `failed` now and then to end early.
class Output : public exchange::TextSink {
public:
    explicit Output(platform::FileWriter& file) : file_(file) {}

    void write(std::string_view bytes) override {
        if (!failed_ && !bytes.empty())
            failed_ = !file_.write(bytes);
    }
    void writeLine(std::string_view text) {
        write(text);
        write("\n");
    }

    [[nodiscard]] bool failed() const { return failed_; }

    /// Writes what is left; false when anything was not written.
    [[nodiscard]] bool finish() {
        const bool closed = file_.close();
        return closed && !failed_;
    }
    [[nodiscard]] platform::PlatformError error() const { return file_.error(); }

private:
    platform::FileWriter& file_;
    bool failed_ = false;
};

} // namespace hourwright::cli
