#pragma once

#include <string_view>

namespace hourwright::exchange {

/// Where text is written to piece by piece, in UTF-8. It remembers a failure, so writers need not look after each
/// piece.
class TextSink {
public:
    virtual ~TextSink() = default;

    virtual void write(std::string_view bytes) = 0;
};

} // namespace hourwright::exchange
