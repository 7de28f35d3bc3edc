#pragma once

#include <cstddef>
#include <span>

/// What is tried with made-up bytes. Each target reads any bytes and throws `Broken` (require.h) when what it states
/// about them does not hold. libFuzzer calls one of them (libfuzzer.cpp), the ordinary tests call all of them with the
/// samples that are kept (replay.cpp).
namespace hourwright::fuzz {

using Bytes = std::span<const std::byte>;

void noteDocument(Bytes bytes);
void foreignNote(Bytes bytes);
void markupDocument(Bytes bytes);
void handOver(Bytes bytes);
void registryValues(Bytes bytes);
void propertyRecords(Bytes bytes);
void typedNumbers(Bytes bytes);
void typedDates(Bytes bytes);

} // namespace hourwright::fuzz
