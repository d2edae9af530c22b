#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

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

    // Four bytes as an int, covering its whole range.
    int wholeInt() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = value << 8 | byte();
        return static_cast<int>(value);
    }

    // A text. A leading byte chooses how the bytes behind it read: mostly as UTF-8 up to the
    // next zero byte (broken sequences become replacement characters), now and then as raw
    // UTF-16 code units, two bytes each, up to the next zero unit, so that texts with lone
    // surrogates come along too.
    QString text() {
        QString text;
        if (byte() % 4 == 0) {
            while (!atEnd()) {
                const std::uint8_t high = byte();
                const auto unit = static_cast<char16_t>(high << 8 | byte());
                if (unit == 0) break;
                text.append(QChar(unit));
            }
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
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t position_ = 0;
};
