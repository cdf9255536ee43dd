#pragma once

#include <memory>
#include <string>

class QLockFile;

namespace tk07::desktop {

// Marks in the temporary directory that a window is at work, so that the next one knows whether
// this run came to its end: a mark whose program is gone is one that did not.
class InCorsa {
  public:
    // Takes the marks of dead runs away and sets its own. Nothing where none can be written.
    explicit InCorsa(const std::string& dirTemp);
    ~InCorsa();
    // Whether a run before this one broke off.
    bool AltraInterrotta() const { return interrotta_; }
    // The mark outlives this run: it did not end well.
    void LasciaIlSegno();

  private:
    std::unique_ptr<QLockFile> segno_;
    bool interrotta_ = false;
};

}  // namespace tk07::desktop
