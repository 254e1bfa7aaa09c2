#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/SharedState.h"

// What the fuzzers share: an input is read as a file, or its bytes are taken as the fields of a record. What is then
// written must be read back as the very same record.

/// The bytes of an input as values; zeros and empty texts once they are used up.
struct Bytes {
    std::string_view rest;
    bool areSigned = true;  ///< numbers may be negative

    int Byte();
    void Take(Int16& number);
    void Take(std::span<Int16> numbers);
    void Take(double& number);     ///< from 0, of few digits
    void Take(std::string& text);  ///< up to 15 characters, without those that mean something in some file
    void Take(TileMap& tiles, int columns, int rows);

    template <typename... Fields>
    void TakeAll(Fields&... fields) {
        (Take(fields), ...);
    }
};

// What each fuzzer defines.

extern const std::string FileName;
extern const std::vector<FaultNumber> StatedFaults;  ///< of Read and Write, for a file of any bytes
void Make(Bytes& in);                                ///< fills the record with what can be read back
void Write(const std::string& path);
bool Read(const std::string& path);  ///< false if it failed as it should, or if the text would take too long
