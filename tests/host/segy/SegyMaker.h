#pragma once

#include "host/segy/Fields.h"

#include <QByteArray>
#include <QFile>

#include <cstring>
#include <functional>
#include <vector>

/// Writes SEG-Y byte by byte, as strangely as a test wants it.
class SegyMaker
{
public:
    struct Trace
    {
        std::int32_t inlineNumber = 0;
        std::int32_t crosslineNumber = 0;
        std::int32_t x = 0;
        std::int32_t y = 0;
    };

    hv::segy::ByteOrder order = hv::segy::ByteOrder::Big;
    int format = 5;
    int samples = 4;
    int interval = 4000;
    int revision = 0x0100;
    int extendedTexts = 0;
    int scalar = 1;
    int inlineByte = 189, crosslineByte = 193, xByte = 181, yByte = 185;
    QByteArray text = QByteArray(3200, char(0x40));
    /// Called with each trace's header when it is filled, and its number.
    std::function<void(QByteArray&, int)> change;

    std::vector<Trace> traces;

    /// Lines first, first + step, ...; inline after inline.
    void addSurvey(int inlines, int crosslines, int firstInline = 1, int firstCrossline = 20, int step = 1)
    {
        for (int i = 0; i < inlines; ++i)
            for (int j = 0; j < crosslines; ++j)
                traces.push_back({firstInline + i * step, firstCrossline + j * step, 1000 + 100 * j + 30 * i,
                                  5000 + 200 * i - 60 * j});
    }

    static float sample(const Trace& trace, int index)
    {
        return static_cast<float>(trace.inlineNumber) + static_cast<float>(trace.crosslineNumber) / 128.0F -
               static_cast<float>(index) / 4.0F;
    }

    void put16(QByteArray& bytes, int byte, int value) const { put(bytes, byte, static_cast<std::uint32_t>(value), 2); }
    void put32(QByteArray& bytes, int byte, std::int64_t value) const
    {
        put(bytes, byte, static_cast<std::uint32_t>(value), 4);
    }

    QByteArray binaryHeader() const
    {
        QByteArray binary(400, '\0');
        put16(binary, 3217 - 3200, interval);
        put16(binary, 3221 - 3200, samples);
        put16(binary, 3225 - 3200, format);
        put16(binary, 3501 - 3200, revision);
        put16(binary, 3503 - 3200, 1);
        put16(binary, 3505 - 3200, extendedTexts);
        return binary;
    }

    QByteArray bytes() const
    {
        QByteArray all = text + binaryHeader();
        all += QByteArray(3200 * extendedTexts, char(0x40));
        int number = 0;
        for (const Trace& trace : traces) {
            QByteArray header(240, '\0');
            put16(header, 29, 1);
            put16(header, 71, scalar);
            put16(header, 115, samples);
            put16(header, 117, interval);
            put32(header, inlineByte, trace.inlineNumber);
            put32(header, crosslineByte, trace.crosslineNumber);
            put32(header, xByte, trace.x);
            put32(header, yByte, trace.y);
            if (change)
                change(header, number);
            ++number;
            all += header;
            for (int i = 0; i < samples; ++i)
                all += encoded(sample(trace, i));
        }
        return all;
    }

    QString write(const QString& path) const
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes()) >= 0 ? path : QString();
    }

private:
    void put(QByteArray& bytes, int byte, std::uint32_t value, int size) const
    {
        for (int i = 0; i < size; ++i) {
            const int shift = 8 * (order == hv::segy::ByteOrder::Big ? size - 1 - i : i);
            bytes[byte - 1 + i] = static_cast<char>(value >> shift);
        }
    }

    QByteArray encoded(float value) const
    {
        QByteArray bytes;
        if (format == 5) {
            std::uint32_t bits = 0;
            std::memcpy(&bits, &value, sizeof bits);
            bytes.resize(4);
            put(bytes, 1, bits, 4);
        } else if (format == 1) {
            bytes.resize(4);
            hv::segy::encode(hv::segy::SampleFormat::Ibm, &value, reinterpret_cast<std::byte*>(bytes.data()), 1);
            if (order == hv::segy::ByteOrder::Little)
                std::reverse(bytes.begin(), bytes.end());
        } else {
            const int size = format == 8 ? 1 : format == 3 ? 2 : 4;
            bytes.resize(size);
            put(bytes, 1, static_cast<std::uint32_t>(static_cast<std::int32_t>(value)), size);
        }
        return bytes;
    }
};
