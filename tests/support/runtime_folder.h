// A folder of the test's own, for the links COMn among others.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace zps::tests {

// While it lives, the runtime directory of this process, so that tests don't meet each other's
// links or a person's.
class RuntimeFolder {
  public:
    RuntimeFolder() {
        if (mkdtemp(Name.data()) == nullptr) std::abort();
        setenv("XDG_RUNTIME_DIR", Name.c_str(), 1);
    }
    ~RuntimeFolder() {
        setenv("XDG_RUNTIME_DIR", Before.c_str(), 1);
        std::filesystem::remove_all(Name);
    }
    RuntimeFolder(const RuntimeFolder&) = delete;
    RuntimeFolder& operator=(const RuntimeFolder&) = delete;
    std::filesystem::path Path() const { return Name; }

  private:
    const std::string Before = std::getenv("XDG_RUNTIME_DIR") ? std::getenv("XDG_RUNTIME_DIR") : "";
    // mkdtemp puts characters of its choice in place of the last six.
    std::string Name = std::filesystem::temp_directory_path() / ("zps-test-" + std::string(6, 'X'));
};

}  // namespace zps::tests
