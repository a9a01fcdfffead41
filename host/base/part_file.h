// A file that is written beside the one that it shall replace.
#pragma once

#include <string>

// A name of its own for each, so that nothing disturbs another that is written for the same place;
// whole files take the place in turn. While one stands, a file of the same name with ".lock" behind
// it tells so; the system removes that file with its program, however it ends. What has no lock was
// left by a program that was killed, and is removed by the next one for the same place.
class PartFile {
public:
    // Throws Failure when nothing can be written beside the path.
    explicit PartFile(std::string path);
    ~PartFile(); // deletes what wasn't put in place
    PartFile(const PartFile &) = delete;
    PartFile &operator=(const PartFile &) = delete;

    // Where to write. There is no file yet.
    const std::string &Path() const { return path_; }
    // Puts the finished file in its place. Throws Failure.
    void PutInPlace() const;

private:
    std::string place_;
    std::string path_;
    void *lock_;
};
