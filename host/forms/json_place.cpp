#include "host/forms/json_place.h"

#include <algorithm>
#include <vector>

#include <nlohmann/json.hpp>

namespace {

std::string Unescaped(const std::string &step) {
    std::string name;
    for (size_t place = 0; place < step.size(); ++place)
        name += step[place] != '~' ? step[place] : step[++place] == '0' ? '~' : '/';
    return name;
}

std::vector<std::string> Steps(const std::string &pointer) {
    std::vector<std::string> steps;
    for (size_t start = 1; start <= pointer.size();) {
        const size_t end = std::min(pointer.find('/', start), pointer.size());
        steps.push_back(Unescaped(pointer.substr(start, end - start)));
        start = end + 1;
    }
    return steps;
}

// Walks a sound JSON text along the steps of a pointer.
class Walk {
public:
    Walk(const std::string &text, const std::vector<std::string> &steps)
        : text_(text), steps_(steps) {}

    size_t Find() {
        Value(0);
        return found_;
    }

private:
    void Blanks() { place_ = std::min(text_.find_first_not_of(" \t\r\n", place_), text_.size()); }
    char Here() const { return place_ < text_.size() ? text_[place_] : '\0'; }

    std::string String() {
        const size_t start = ++place_;
        while (place_ < text_.size() && text_[place_] != '"')
            place_ += text_[place_] == '\\' ? 2 : 1;
        const std::string quoted = text_.substr(start - 1, ++place_ - start + 1);
        return nlohmann::json::parse(quoted).get<std::string>();
    }

    // depth: how many steps lead here, or NOT_ON_THE_WAY.
    void Value(size_t depth) {
        Blanks();
        if (depth != NOT_ON_THE_WAY) found_ = place_;
        if (Here() == '{')
            Members(depth, '}');
        else if (Here() == '[')
            Members(depth, ']');
        else if (Here() == '"')
            String();
        else
            place_ = std::min(text_.find_first_of(",]} \t\r\n", place_), text_.size());
    }

    void Members(size_t depth, char closing) {
        ++place_;
        for (size_t index = 0; place_ < text_.size(); ++index) {
            Blanks();
            if (Here() == closing) break;
            std::string name = std::to_string(index);
            if (closing == '}') {
                name = String();
                Blanks();
                ++place_; // the colon
            }
            const bool on_the_way =
                depth != NOT_ON_THE_WAY && depth < steps_.size() && steps_[depth] == name;
            Value(on_the_way ? depth + 1 : NOT_ON_THE_WAY);
            Blanks();
            if (Here() == ',') ++place_;
        }
        ++place_;
    }

    static constexpr size_t NOT_ON_THE_WAY = static_cast<size_t>(-1);
    const std::string &text_;
    const std::vector<std::string> &steps_;
    size_t place_ = 0;
    size_t found_ = 0;
};

} // namespace

int LineOfPointer(const std::string &text, const std::string &pointer) {
    const std::vector<std::string> steps = Steps(pointer);
    const size_t place = Walk(text, steps).Find();
    return 1 + static_cast<int>(std::count(
                   text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
}
