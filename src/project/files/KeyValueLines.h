#pragma once

#include <string>
#include <vector>

#include "Bytes.h"

namespace vtr {

/// One line of a text file of KEY=value lines.
struct KeyValueLine {
    int number = 0;          ///< counted from 1
    std::string text;        ///< the whole line, without its end
    bool hasEquals = false;  ///< false: not a key and value at all; key and value are empty
    std::string key;         ///< what stands before the first "=", ASCII letters in upper case, blanks kept
    std::string value;       ///< what stands after it, untrimmed
};

/// The lines of a file's bytes. They end in CR LF or LF, the last one may end with the file.
std::vector<KeyValueLine> SplitKeyValueLines(ConstByteSpan bytes);

}  // namespace vtr
