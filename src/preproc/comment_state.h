#pragma once

// Comments as the macro and the constant scan see them, one character at a time.

namespace vorn {

// 1: the line scan is inside a comment; 0: outside. Written by CommentScan. A
// block comment keeps it set from line to line, and from the macro scan of a
// line to the constant scan of the same line.
extern unsigned char IN_COMMENT;

// One scan of one line. Block comments do not nest here, "/*" behind ";" opens
// one and "*/" behind ";" ends the comment: kept on purpose.
class CommentScan {
public:
    CommentScan() : block_(IN_COMMENT != 0) {}

    // Takes in one character, knowing the one behind it.
    void track(char c, char next) {
        if (c == '/' && next == '*') {
            IN_COMMENT = 1;
            block_ = true;
        } else if (c == '*' && next == '/') {
            IN_COMMENT = 0;
            block_ = false;
        } else if (c == ';') {
            IN_COMMENT = 1;
        }
    }

    // A ";" comment ends with its line.
    void end_line() const {
        if (!block_) IN_COMMENT = 0;
    }

private:
    bool block_;  // the comment was opened by "/*"
};

void reset_comment_state();

}  // namespace vorn
