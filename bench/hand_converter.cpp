// The least that converts between STL and OBJ, as one writes it by hand for files known to be good: what the
// sample translator is measured against. It uses nothing of the library.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kBlockSize = 1 << 18;
constexpr std::size_t kHeaderSize = 84;
constexpr std::size_t kFacetSize = 50;

struct Vertex {
    float x, y, z;
};

std::FILE* opened(std::string const& name, char const* mode) {
    std::FILE* const file = std::fopen(name.c_str(), mode);
    if (!file) {
        std::perror(name.c_str());
        std::exit(1);
    }
    std::setvbuf(file, nullptr, _IONBF, 0);
    return file;
}

/// A file in blocks; what is not taken stays in front of the next one.
class Input {
public:
    explicit Input(std::string const& name) : file_(opened(name, "rb")), block_(kBlockSize) {}

    bool next(std::size_t taken) {
        end_ -= taken;
        std::memmove(block_.data(), block_.data() + taken, end_);
        std::size_t const got = std::fread(block_.data() + end_, 1, block_.size() - end_, file_);
        end_ += got;
        return got > 0;
    }
    std::string_view view() const { return {block_.data(), end_}; }

private:
    std::FILE* file_;
    std::vector<char> block_;
    std::size_t end_ = 0;
};

class Output {
public:
    explicit Output(std::string const& name) : file_(opened(name, "wb")), block_(kBlockSize) {}
    ~Output() {
        flush();
        if (std::fclose(file_) != 0)
            std::abort();
    }

    /// Room for one more record.
    char* room() {
        if (block_.size() - fill_ < 1024)
            flush();
        return block_.data() + fill_;
    }
    void use(char const* end) { fill_ = static_cast<std::size_t>(end - block_.data()); }
    void patch(long at, std::uint32_t value) {
        flush();
        std::fseek(file_, at, SEEK_SET);
        std::fwrite(&value, sizeof value, 1, file_);
    }

private:
    void flush() {
        if (std::fwrite(block_.data(), 1, fill_, file_) != fill_)
            std::abort();
        fill_ = 0;
    }

    std::FILE* file_;
    std::vector<char> block_;
    std::size_t fill_ = 0;
};

char* put(char* to, std::string_view text) {
    std::memcpy(to, text.data(), text.size());
    return to + text.size();
}

template <class Number> char* putNumber(char* to, Number value) {
    *to = ' ';
    return std::to_chars(to + 1, to + 32, value).ptr;
}

char* putVertex(char* to, std::string_view word, Vertex const& v) {
    to = putNumber(putNumber(putNumber(put(to, word), v.x), v.y), v.z);
    *to = '\n';
    return to + 1;
}

Vertex normal(Vertex const& a, Vertex const& b, Vertex const& c) {
    double const ux = double{b.x} - a.x, uy = double{b.y} - a.y, uz = double{b.z} - a.z;
    double const vx = double{c.x} - a.x, vy = double{c.y} - a.y, vz = double{c.z} - a.z;
    double const x = uy * vz - uz * vy, y = uz * vx - ux * vz, z = ux * vy - uy * vx;
    double const length = std::sqrt(x * x + y * y + z * z);
    if (!(length > 0))
        return {0, 0, 0};
    return {static_cast<float>(x / length), static_cast<float>(y / length), static_cast<float>(z / length)};
}

class AsciiStl {
public:
    explicit AsciiStl(std::string const& name) : out_(name) { out_.use(put(out_.room(), "solid\n")); }
    ~AsciiStl() { out_.use(put(out_.room(), "endsolid\n")); }

    void reserve(std::size_t) {}
    void triangle(Vertex const& a, Vertex const& b, Vertex const& c) {
        char* to = putVertex(out_.room(), "  facet normal", normal(a, b, c));
        to = put(to, "    outer loop\n");
        to = putVertex(putVertex(putVertex(to, "      vertex", a), "      vertex", b), "      vertex", c);
        out_.use(put(to, "    endloop\n  endfacet\n"));
    }

private:
    Output out_;
};

class BinaryStl {
public:
    explicit BinaryStl(std::string const& name) : out_(name) {
        char* const to = out_.room();
        std::memset(to, 0, kHeaderSize);
        out_.use(to + kHeaderSize);
    }
    ~BinaryStl() { out_.patch(80, count_); }

    void reserve(std::size_t) {}
    void triangle(Vertex const& a, Vertex const& b, Vertex const& c) {
        Vertex const facet[4] = {normal(a, b, c), a, b, c};
        char* const to = out_.room();
        std::memcpy(to, facet, sizeof facet);
        std::memset(to + sizeof facet, 0, kFacetSize - sizeof facet);
        out_.use(to + kFacetSize);
        ++count_;
    }

private:
    Output out_;
    std::uint32_t count_ = 0;
};

class Obj {
public:
    explicit Obj(std::string const& name) : out_(name), slots_(1024) {}
    ~Obj() {
        for (Vertex const& v : vertices_)
            out_.use(putVertex(out_.room(), "v", v));
        for (auto const& t : triangles_) {
            char* const to = putNumber(putNumber(putNumber(put(out_.room(), "f"), t[0]), t[1]), t[2]);
            *to = '\n';
            out_.use(to + 1);
        }
    }

    void reserve(std::size_t triangles) {
        triangles_.reserve(triangles);
        vertices_.reserve(triangles / 2);
    }
    void triangle(Vertex const& a, Vertex const& b, Vertex const& c) {
        std::uint32_t const first = weld(a), second = weld(b);
        triangles_.push_back({first, second, weld(c)});
    }

private:
    std::size_t home(Vertex const& v) const {
        Vertex const key{v.x + 0.0F, v.y + 0.0F, v.z + 0.0F}; // -0 is 0
        std::uint64_t xy;
        std::uint32_t z;
        std::memcpy(&xy, &key.x, sizeof xy);
        std::memcpy(&z, &key.z, sizeof z);
        xy *= 0x9E3779B97F4A7C15U;
        xy = (xy ^ xy >> 32 ^ z) * 0xD6E8FEB86659FD93U;
        return static_cast<std::size_t>(xy >> 32) & (slots_.size() - 1);
    }

    /// Numbers from 1; 0 is an empty slot.
    std::uint32_t weld(Vertex const& v) {
        std::size_t slot = home(v);
        for (; slots_[slot] != 0; slot = (slot + 1) & (slots_.size() - 1)) {
            Vertex const& other = vertices_[slots_[slot] - 1];
            if (other.x == v.x && other.y == v.y && other.z == v.z)
                return slots_[slot];
        }
        vertices_.push_back(v);
        slots_[slot] = static_cast<std::uint32_t>(vertices_.size());
        if (2 * vertices_.size() > slots_.size())
            grow();
        return static_cast<std::uint32_t>(vertices_.size());
    }
    void grow() {
        slots_ = std::vector<std::uint32_t>(2 * slots_.size());
        for (std::size_t i = 0; i < vertices_.size(); ++i) {
            std::size_t slot = home(vertices_[i]);
            while (slots_[slot] != 0)
                slot = (slot + 1) & (slots_.size() - 1);
            slots_[slot] = static_cast<std::uint32_t>(i + 1);
        }
    }

    Output out_;
    std::vector<Vertex> vertices_;
    std::vector<std::array<std::uint32_t, 3>> triangles_;
    std::vector<std::uint32_t> slots_;
};

template <class Sink> void readBinary(Input& in, Sink&& sink) {
    std::uint32_t count;
    std::memcpy(&count, in.view().data() + 80, sizeof count);
    sink.reserve(count);
    std::size_t taken = kHeaderSize;
    do {
        std::string_view const view = in.view();
        for (; view.size() - taken >= kFacetSize; taken += kFacetSize) {
            Vertex corners[3];
            std::memcpy(corners, view.data() + taken + 12, sizeof corners);
            sink.triangle(corners[0], corners[1], corners[2]);
        }
    } while (in.next(std::exchange(taken, 0)));
}

/// Hands each line to an operation, from its first character that is no blank.
template <class Operation> void eachLine(Input& in, Operation const& operation) {
    std::size_t taken = 0;
    do {
        char const* const begin = in.view().data();
        char const* const end = begin + in.view().size();
        char const* at = begin;
        while (char const* const lineEnd =
                   static_cast<char const*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)))) {
            while (*at == ' ')
                ++at;
            operation(at, lineEnd);
            at = lineEnd + 1;
        }
        taken = static_cast<std::size_t>(at - begin);
    } while (in.next(taken));
}

template <class Number> char const* number(char const* at, char const* end, Number& value) {
    while (*at == ' ')
        ++at;
    return std::from_chars(at, end, value).ptr;
}

char const* vertex(char const* at, char const* end, Vertex& v) {
    return number(number(number(at, end, v.x), end, v.y), end, v.z);
}

template <class Sink> void readAscii(Input& in, Sink&& sink) {
    Vertex corners[3];
    int known = 0;
    eachLine(in, [&](char const* at, char const* end) {
        if (*at != 'v')
            return;
        vertex(at + 6, end, corners[known++]);
        if (known == 3) {
            sink.triangle(corners[0], corners[1], corners[2]);
            known = 0;
        }
    });
}

template <class Sink> void readObj(Input& in, Sink&& sink) {
    std::vector<Vertex> vertices;
    eachLine(in, [&](char const* at, char const* end) {
        if (at[0] == 'v' && at[1] == ' ') {
            Vertex v;
            vertex(at + 1, end, v);
            vertices.push_back(v);
        } else if (at[0] == 'f') {
            std::size_t first = 0, last = 0, corner = 0;
            int known = 0;
            for (++at; at < end; ++known) {
                at = number(at, end, corner);
                while (at < end && *at != ' ') // "/2/3", and the line end of other systems
                    ++at;
                if (known >= 2)
                    sink.triangle(vertices[first - 1], vertices[last - 1], vertices[corner - 1]);
                (known == 0 ? first : last) = corner;
            }
        }
    });
}

bool endsIn(std::string const& name, std::string_view end) {
    return name.size() >= end.size() && name.compare(name.size() - end.size(), end.size(), end) == 0;
}

template <class Sink> void convert(std::string const& input, Sink&& sink) {
    Input in(input);
    in.next(0);
    if (endsIn(input, ".obj"))
        readObj(in, sink);
    else if (in.view().substr(0, 5) == "solid")
        readAscii(in, sink);
    else
        readBinary(in, sink);
}

/// A torus with bumps of about that many triangles: a closed surface whose coordinates use all their bits.
void generate(std::size_t triangles, std::string const& name) {
    std::size_t const around =
        std::max<std::size_t>(1, static_cast<std::size_t>(std::sqrt(static_cast<double>(triangles) / 2)));
    std::size_t const along = triangles / 2 / around;
    auto const point = [&](std::size_t i, std::size_t k) {
        double const u = 6.283185307179586 * static_cast<double>(i % along) / static_cast<double>(along);
        double const v = 6.283185307179586 * static_cast<double>(k % around) / static_cast<double>(around);
        double const tube = 20 + 1.5 * std::sin(11 * u) * std::cos(7 * v);
        double const ring = 70 + tube * std::cos(v);
        return Vertex{static_cast<float>(ring * std::cos(u)), static_cast<float>(ring * std::sin(u)),
                      static_cast<float>(tube * std::sin(v))};
    };
    BinaryStl out(name);
    for (std::size_t i = 0; i < along; ++i) {
        for (std::size_t k = 0; k < around; ++k) {
            Vertex const a = point(i, k), b = point(i + 1, k), c = point(i + 1, k + 1), d = point(i, k + 1);
            out.triangle(a, b, c);
            out.triangle(a, c, d);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> const arguments(argv + 1, argv + argc);
    bool const ascii = arguments.size() == 3 && arguments[2] == "--ascii";
    if (arguments.size() == 3 && arguments[0] == "--generate") {
        generate(std::strtoul(arguments[1].c_str(), nullptr, 10), arguments[2]);
    } else if (arguments.size() == 2 || ascii) {
        if (endsIn(arguments[1], ".obj"))
            convert(arguments[0], Obj(arguments[1]));
        else if (ascii)
            convert(arguments[0], AsciiStl(arguments[1]));
        else
            convert(arguments[0], BinaryStl(arguments[1]));
    } else {
        std::fputs(
            "usage: hand-converter INPUT OUTPUT [--ascii]\n       hand-converter --generate TRIANGLES OUTPUT.stl\n",
            stderr);
        return 2;
    }
    return 0;
}
