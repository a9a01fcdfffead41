// fuzz ROOT --kind KIND [--seed S] [--from CASE] [--count N] [--seconds N] [--left FOLDER]
// fuzz ROOT --replay FILES...
// fuzz ROOT --break: writes past the end of a block, which must end the program with 99.
//
// Drives inputs through the library in this one process. A case is settled by its kind, its seed
// and, in a build that tells what code ran, by the cases before it that ran something new.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "frame/session_table.h"
#include "fuzz/coverage.h"
#include "fuzz/guarded_heap.h"
#include "fuzz/kinds.h"
#include "fuzz/places.h"
#include "fuzz/watch.h"
#include "state/windows.h"
#include "tests/support/failing_call.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"
#include "tests/support/walk_answers.h"

namespace {

constexpr size_t MOST_INPUTS = 2000; // that are kept to come from
constexpr size_t MOST_BYTES = 200000;

const Kind *const kinds[] = {&form_files, &report_files, &report_pages, &expressions,
                             &json_forms, &csv_tables,   &bitmaps,      &designer_walks};

struct Options {
    std::string root;
    const Kind *kind = nullptr;
    uint64_t seed = 1;
    unsigned from = 0;
    unsigned count = 0; // 0: as many as there is time for
    double seconds = 60;
    std::string left;
    std::vector<std::string> replay;
    bool break_out = false;
};

double Now() { return static_cast<double>(GetTickCount64()) / 1000; }

// ---- the surroundings --------------------------------------------------------------------------

// Boxes without a window, since most inputs end in one; questions are answered by turns.
int WINAPI AnswerBox(HWND, LPCSTR, LPCSTR, UINT flags) {
    static bool yes = false;
    if ((flags & MB_TYPEMASK) != MB_YESNO) return IDOK;
    yes = !yes;
    return yes ? IDYES : IDNO;
}

void TakeModule(HMODULE module) {
    GuardHeapOf(module);
    if (void **slot = ImportSlot(module, "MessageBoxA"))
        ReplaceImport(slot, reinterpret_cast<void *>(AnswerBox));
}

// A prompt is answered with what it offers, and given up when that won't do.
void AnswerPrompt(HWND dialog) {
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
}

// ---- what is new -------------------------------------------------------------------------------

class Novelty {
public:
    Novelty() : maps_{CoverageMap()} {
        const auto of_library = reinterpret_cast<uint8_t *(*)()>(reinterpret_cast<void *>(
            GetProcAddress(GetModuleHandleA("tessarine.dll"), "CoverageMap")));
        if (of_library) maps_.push_back(of_library());
        seen_.resize(maps_.size() * COVERAGE_SIZE);
    }

    // True when code ran, or ran as often, as in no case before; starts anew.
    bool Take() {
        bool anew = false;
        for (size_t map = 0; map < maps_.size(); ++map) {
            auto *words = reinterpret_cast<uint32_t *>(maps_[map]);
            for (size_t word = 0; word < COVERAGE_SIZE / 4; ++word) {
                if (!words[word]) continue;
                for (size_t byte = word * 4; byte < word * 4 + 4; ++byte)
                    anew = Mark(map * COVERAGE_SIZE + byte, maps_[map][byte]) || anew;
                words[word] = 0;
            }
        }
        return anew;
    }
    size_t Places() const {
        return static_cast<size_t>(
            std::count_if(seen_.begin(), seen_.end(), [](uint8_t times) { return times != 0; }));
    }

private:
    bool Mark(size_t place, uint8_t times) {
        const auto bit = static_cast<uint8_t>(times == 0    ? 0
                                              : times < 4   ? 1 << (times - 1)
                                              : times < 32  ? 8
                                              : times < 128 ? 16
                                                            : 32);
        if (!(bit & ~seen_[place])) return false;
        seen_[place] |= bit;
        return true;
    }

    std::vector<uint8_t *> maps_;
    std::vector<uint8_t> seen_;
};

// ---- the work ----------------------------------------------------------------------------------

void RunCase(const Kind &kind, const std::string &input) {
    WatchCase(kind.name, input);
    kind.run(input);
}

void Fuzz(const Options &options) {
    const Kind &kind = *options.kind;
    Novelty novelty;
    std::vector<std::string> inputs = kind.seeds();
    for (const std::string &input : inputs) RunCase(kind, input);
    novelty.Take();
    const double start = Now();
    unsigned done = 0;
    for (; options.count ? done < options.count : Now() - start < options.seconds; ++done) {
        Random random(options.seed * 1000003 + options.from + done);
        std::string input = kind.changed(&random, random.Of(inputs));
        if (input.size() > MOST_BYTES) input.resize(MOST_BYTES);
        RunCase(kind, input);
        if (!novelty.Take()) continue;
        if (inputs.size() < MOST_INPUTS)
            inputs.push_back(input);
        else
            inputs[random.Below(MOST_INPUTS)] = input;
    }
    const double seconds = Now() - start;
    std::printf("%s: %u inputs in %.1f s, %.0f a second; %zu to come from, %zu places of code\n",
                kind.name, done, seconds, done / std::max(seconds, 0.001), inputs.size(),
                novelty.Places());
}

const Kind *KindOf(const std::string &name) {
    for (const Kind *kind : kinds)
        if (name == kind->name) return kind;
    std::fprintf(stderr, "fuzz: no kind of input is called \"%s\"\n", name.c_str());
    std::exit(2);
}

// The kind stands in the file's name, before the hyphen.
void Replay(const std::string &path) {
    const std::string name = path.substr(path.find_last_of("\\/") + 1);
    const Kind *kind = KindOf(name.substr(0, name.find('-')));
    std::printf("%s\n", name.c_str());
    std::fflush(stdout);
    RunCase(*kind, ReadWholeFile(path));
}

Options Parse(int count, char **arguments) {
    Options options;
    if (count < 3) std::exit(2);
    options.root = arguments[1];
    for (int at = 2; at < count; ++at) {
        const std::string name = arguments[at];
        const auto value = [&] { return at + 1 < count ? arguments[++at] : ""; };
        if (name == "--kind") options.kind = KindOf(value());
        if (name == "--seed") options.seed = std::strtoull(value(), nullptr, 10);
        if (name == "--from") options.from = static_cast<unsigned>(std::atoi(value()));
        if (name == "--count") options.count = static_cast<unsigned>(std::atoi(value()));
        if (name == "--seconds") options.seconds = std::atof(value());
        if (name == "--left") options.left = value();
        if (name == "--break") options.break_out = true;
        if (name == "--replay") options.replay.assign(arguments + at + 1, arguments + count);
        if (name == "--replay") break;
    }
    return options;
}

} // namespace

int main(int count, char **arguments) {
    const Options options = Parse(count, arguments);
    tessarine::module_instance = GetModuleHandleA(nullptr);
    tessarine::frc_format = 1;
    StartWatch(options.left);
    const TemporaryFolder scratch;
    SetPlaces(options.root, scratch.Root());
    TakeModule(GetModuleHandleA(nullptr));
    TakeModule(GetModuleHandleA("tessarine.dll"));
    MessageBoxes boxes;
    boxes.OnDialog("User Field Prompt", AnswerPrompt);
    boxes.OnAnyOther(WalkAnswer);
    if (options.break_out) static_cast<char volatile *>(GuardedBlock(8))[8] = 1;
    for (const std::string &path : options.replay) Replay(path);
    if (options.kind) Fuzz(options);
    return 0;
}
