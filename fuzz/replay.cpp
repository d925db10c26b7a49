// Runs a fuzz target without a fuzzer, on all files of some folders and on mutations of them that are the same each
// time.
//
//     replay MUTATIONS FOLDER...
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "fuzz/FuzzInput.h"

namespace {

std::vector<std::string> InputsIn(const std::vector<std::string>& folders) {
    std::vector<std::filesystem::path> paths;
    for (const std::string& folder : folders)
        for (const auto& entry : std::filesystem::directory_iterator(folder)) paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> inputs;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return inputs;
}

class Mutator {
 public:
    explicit Mutator(const std::vector<std::string>& inputs) : m_Inputs(inputs) {}

    /// One of the inputs with up to four parts replaced.
    std::string Next() {
        std::string input = Any();
        for (std::size_t left = 1 + Below(4); left > 0; --left) {
            const std::size_t at = Below(input.size() + 1);
            input.replace(at, Below(9), Part());
        }
        return input;
    }

 private:
    std::size_t Below(std::size_t count) { return m_Random() % count; }
    const std::string& Any() { return m_Inputs[Below(m_Inputs.size())]; }

    /// Nothing, a byte, or a piece of an input.
    std::string Part() {
        const std::size_t kind = Below(3);
        if (kind == 0) return {};
        if (kind == 1) return std::string(1, static_cast<char>(Below(256)));
        const std::string& other = Any();
        return other.substr(Below(other.size() + 1), Below(40));
    }

    const std::vector<std::string>& m_Inputs;
    std::mt19937 m_Random;
};

void Run(const std::string& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::cerr << "replay MUTATIONS FOLDER...\n";
        return 2;
    }
    const std::vector<std::string> inputs = InputsIn({arguments + 2, arguments + count});
    if (inputs.empty()) {
        std::cerr << "there are no inputs\n";
        return 2;
    }
    for (const std::string& input : inputs) Run(input);
    const unsigned long mutations = std::strtoul(arguments[1], nullptr, 10);
    Mutator mutator(inputs);
    for (unsigned long done = 0; done < mutations; ++done) Run(mutator.Next());
    std::cout << inputs.size() << " inputs, " << mutations << " mutations\n";
    return 0;
}
