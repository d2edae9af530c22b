#pragma once

#include <QString>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// A property that does not hold ends the run the way a crash does, so that libFuzzer keeps the
// input that broke it and the seed replay fails.
[[noreturn]] inline void fuzzPropertyFailed(const char* property, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: property failed: %s\n", file, line, property);
    std::abort();
}
#define FUZZ_CHECK(property) \
    ((property) ? void() : fuzzPropertyFailed(#property, __FILE__, __LINE__))

// Takes values off the front of a fuzz input; past its end every value is zero or empty.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool atEnd() const { return position_ >= size_; }
    std::uint8_t byte() { return atEnd() ? 0 : data_[position_++]; }
    // A whole number from `low` to `high` (at most 256 values apart), from one byte.
    int number(int low, int high) { return low + byte() % (high - low + 1); }
    // Four bytes as an int, and eight as a double: their whole ranges, NaN and infinities too.
    int wholeInt() { return static_cast<int>(bigEndian(4)); }
    double real() {
        const std::uint64_t bits = bigEndian(8);
        double value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    // A text: after a leading byte, mostly UTF-8 up to a zero byte (broken sequences read as
    // replacement characters), now and then raw UTF-16 up to a zero unit, lone surrogates too.
    QString text() {
        QString text;
        if (byte() % 4 == 0) {
            for (auto unit = char16_t(bigEndian(2)); unit != 0; unit = char16_t(bigEndian(2)))
                text.append(QChar(unit));
            return text;
        }
        const std::size_t start = position_;
        while (!atEnd() && data_[position_] != 0) ++position_;
        text = QString::fromUtf8(reinterpret_cast<const char*>(data_ + start),
                                 static_cast<qsizetype>(position_ - start));
        byte();  // the zero that ended it
        return text;
    }

private:
    std::uint64_t bigEndian(int bytes) {
        std::uint64_t value = 0;
        for (int i = 0; i < bytes; ++i) value = value << 8 | byte();
        return value;
    }

    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t position_ = 0;
};
