#include "support/midi_dump.h"

#include <cstddef>
#include <sstream>
#include <stdexcept>

// One pass over the bytes with a cursor that may not leave the chunk at hand.
// Each routine reads one element of the format and throws Malformed at the
// first byte that does not fit.

namespace vorn::test {

namespace {

struct Malformed : std::runtime_error {
    Malformed(std::size_t place, const std::string& why)
        : std::runtime_error("MALFORMED at byte " + std::to_string(place) + ": " + why) {}
};

struct Cursor {
    const std::string& bytes;
    std::size_t at = 0;
    std::size_t end = 0;     // of the chunk at hand, or of the file
    unsigned highest = 127;  // of a note or velocity

    unsigned next() {
        if (at >= end) throw Malformed(at, "ends too soon");
        return static_cast<unsigned char>(bytes[at++]);
    }
    unsigned long number(int size) {
        unsigned long value = 0;
        for (int i = 0; i < size; ++i) value = value << 8 | next();
        return value;
    }
    unsigned data_byte(const char* what, unsigned most = 127) {
        const unsigned value = next();
        if (value > most)
            throw Malformed(at - 1, std::string(what) + " " + std::to_string(value) + " above 127");
        return value;
    }
    std::string text(std::size_t size) {
        if (end - at < size) throw Malformed(at, "ends too soon");
        at += size;
        return bytes.substr(at - size, size);
    }
};

// Groups of seven bits, at most four, in the shortest form.
unsigned long read_variable(Cursor& cursor) {
    const std::size_t start = cursor.at;
    unsigned long value = 0;
    for (int size = 1; size <= 4; ++size) {
        const unsigned byte = cursor.next();
        if (size == 1 && byte == 0x80) throw Malformed(start, "variable-length number with a leading zero");
        value = value << 7 | (byte & 0x7F);
        if (byte < 0x80) return value;
    }
    throw Malformed(start, "variable-length number of more than four bytes");
}

std::string hexadecimal(const std::string& bytes) {
    std::string text;
    for (const unsigned char byte : bytes) {
        text += " ";
        text += "0123456789ABCDEF"[byte >> 4];
        text += "0123456789ABCDEF"[byte & 15];
    }
    return text;
}

void require_size(const Cursor& cursor, const std::string& data, std::size_t size, const char* what) {
    if (data.size() != size) throw Malformed(cursor.at - data.size(), std::string(what) + " of wrong size");
}

// FF type size data. Returns whether it ends the track.
bool read_meta_event(Cursor& cursor, std::ostream& out) {
    const unsigned type = cursor.data_byte("meta event type");
    const unsigned long size = read_variable(cursor);
    const std::string data = cursor.text(size);
    const auto byte = [&data](std::size_t i) {
        return static_cast<unsigned>(static_cast<unsigned char>(data[i]));
    };
    if (type == 0x2F) {
        require_size(cursor, data, 0, "end of track");
        out << "end of track\n";
    } else if (type == 0x51) {
        require_size(cursor, data, 3, "tempo");
        out << "tempo " << (byte(0) << 16 | byte(1) << 8 | byte(2)) << "\n";
    } else if (type == 0x58) {
        require_size(cursor, data, 4, "time signature");
        if (byte(1) > 10) throw Malformed(cursor.at - 3, "time signature with a strange denominator");
        out << "time signature " << byte(0) << "/" << (1U << byte(1)) << ", " << byte(2)
            << " clocks per click, " << byte(3) << " thirty-seconds per quarter\n";
    } else {
        out << "meta" << hexadecimal(std::string(1, static_cast<char>(type))) << ":" << hexadecimal(data)
            << "\n";
    }
    return type == 0x2F;
}

// status note velocity
void read_note(Cursor& cursor, unsigned status, std::ostream& out) {
    const unsigned note = cursor.data_byte("note", cursor.highest);
    const unsigned velocity = cursor.data_byte("velocity", cursor.highest);
    out << (status >= 0x90 ? "on" : "off") << " channel " << (status & 15) + 1 << " note " << note
        << " velocity " << velocity << "\n";
}

// Any other message of a channel, by its numbers.
void read_channel_message(Cursor& cursor, unsigned status, std::ostream& out) {
    out << "message" << hexadecimal(std::string(1, static_cast<char>(status))) << ": "
        << cursor.data_byte("data");
    if (status < 0xC0 || status >= 0xE0) out << " " << cursor.data_byte("data");
    out << "\n";
}

// delta event. Returns whether it ends the track.
bool read_event(Cursor& cursor, unsigned long& tick, std::ostream& out) {
    const unsigned long delta = read_variable(cursor);
    tick += delta;
    const std::size_t start = cursor.at;
    const unsigned status = cursor.next();
    if (status < 0x80) throw Malformed(start, "no status byte");
    if (status >= 0xF0 && status != 0xFF) throw Malformed(start, "system message in a track");
    std::ostringstream line;
    bool ends = false;
    if (status == 0xFF) {
        ends = read_meta_event(cursor, line);
    } else if (status < 0xA0) {
        read_note(cursor, status, line);
    } else {
        read_channel_message(cursor, status, line);
    }
    out << tick << " +" << delta << " " << line.str();
    return ends;
}

std::size_t read_chunk_size(Cursor& cursor, const char* type) {
    const std::size_t start = cursor.at;
    if (cursor.text(4) != type) throw Malformed(start, std::string("no ") + type);
    return cursor.number(4);
}

void read_track(Cursor& cursor, unsigned long track, std::ostream& out) {
    const std::size_t size = read_chunk_size(cursor, "MTrk");
    out << "MTrk " << track << ", " << size << " bytes\n";
    const std::size_t end_of_file = cursor.end;
    if (end_of_file - cursor.at < size) throw Malformed(cursor.at, "track longer than the file");
    cursor.end = cursor.at + size;
    unsigned long tick = 0;
    while (!read_event(cursor, tick, out)) {
    }
    if (cursor.at != cursor.end) throw Malformed(cursor.at, "events behind the end of the track");
    cursor.end = end_of_file;
}

void read_file(Cursor& cursor, std::ostream& out) {
    if (read_chunk_size(cursor, "MThd") != 6) throw Malformed(4, "header of wrong size");
    const unsigned long format = cursor.number(2);
    const unsigned long tracks = cursor.number(2);
    const unsigned long division = cursor.number(2);
    out << "MThd format " << format << ", tracks " << tracks << ", division " << division << "\n";
    if (format > 2) throw Malformed(8, "unknown format");
    if (division == 0 || division > 0x7FFF) throw Malformed(12, "division is not in ticks per quarter note");
    for (unsigned long track = 1; track <= tracks; ++track) read_track(cursor, track, out);
    if (cursor.at != cursor.end) throw Malformed(cursor.at, "bytes behind the last track");
}

}  // namespace

std::string midi_dump(const std::string& bytes, DataBytes data) {
    if (bytes.empty()) return "no bytes\n";
    std::ostringstream out;
    Cursor cursor{bytes, 0, bytes.size(), data == DataBytes::ANY ? 255U : 127U};
    try {
        read_file(cursor, out);
    } catch (const Malformed& malformed) {
        out << malformed.what() << "\n";
    }
    return out.str();
}

}  // namespace vorn::test
