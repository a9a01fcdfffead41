// Random steps of a user on an open form, and what must hold after each.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "state/session.h"
#include "state/windows.h"

// One thing that a user does. act: 'p' press, 'm' move, 'r' release (place in form units, c the
// button, 4 more with Shift), 'd' double click, 'c' command a, 'k' key a, 's' scroll bar a by code
// b, thumb c. answer settles what is typed and chosen in the dialogs that it opens.
struct WalkStep {
    char act;
    int a;
    int b;
    int c;
    uint32_t answer;
};

// A line each, as "p 100 200 0 17".
std::string TextOf(const std::vector<WalkStep> &steps);
std::vector<WalkStep> StepsOf(const std::string &text);

// The step with this number of the walk with this seed.
WalkStep StepOf(uint32_t seed, int number);

// A walk on a designer of its own, on the form of a file or, with an empty path, on a new one.
// A MessageBoxes stands while it does.
class DesignerWalk {
public:
    DesignerWalk(const std::string &form, const std::string &folder);
    ~DesignerWalk();
    DesignerWalk(const DesignerWalk &) = delete;
    DesignerWalk &operator=(const DesignerWalk &) = delete;

    // What is wrong with the form afterwards; "" when all holds.
    std::string Take(const WalkStep &step);
    // Saves the form, reads it again and saves that: what differs, "" when nothing does.
    std::string SavedAgain();

private:
    std::string Save(Session *session, const std::string &name) const;
    // The form of these bytes, opened and saved; "" when it doesn't open.
    std::string Reopened(const std::string &bytes) const;

    std::string folder_;
    FormParams params_{};
    Session *session_ = nullptr;
};

// The shortest part of the steps that still shows something wrong, by leaving steps out.
std::vector<WalkStep> Shortest(const std::string &form, const std::string &folder,
                               std::vector<WalkStep> steps);
// Takes the steps on a form: what is wrong, and after how many; "" when all holds to the end.
std::string WalkAll(const std::string &form, const std::string &folder,
                    const std::vector<WalkStep> &steps, size_t *taken = nullptr);
