// A place for a store, empty at first, that goes with the object.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class StoreOnDisk {
 public:
    StoreOnDisk() { Remove(); }
    ~StoreOnDisk() { Remove(); }
    StoreOnDisk(const StoreOnDisk&) = delete;
    StoreOnDisk& operator=(const StoreOnDisk&) = delete;

    const std::string& Path() const { return path_; }

    std::string Bytes() const {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Write(const std::string& bytes) const { std::ofstream(path_, std::ios::binary) << bytes; }

 private:
    void Remove() const {
        std::filesystem::remove(path_);
        std::filesystem::remove(path_ + "-journal");
    }

    static std::string NewPath() {
        static int number = 0;
        return testing::TempDir() + "qzsql_store_" + std::to_string(getpid()) + "_" + std::to_string(++number);
    }

    const std::string path_ = NewPath();
};
