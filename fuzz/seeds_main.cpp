// Passes each file of the folders that it is given to the target, where no fuzzer does.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size);

int main(int count, char **folders)
{
    int seeds = 0;
    for (int i = 1; i < count; ++i) {
        for (const auto &entry : std::filesystem::directory_iterator(folders[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes(std::istreambuf_iterator<char>(file), {});
            std::cout << entry.path().filename().string() << std::endl; // the last is the culprit
            LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char *>(bytes.data()),
                                   bytes.size());
            ++seeds;
        }
    }
    return seeds > 0 ? 0 : 1;
}
