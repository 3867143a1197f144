#pragma once

// What the labels of a list say, read from its first item. Plain and `int` based, so
// that a host may pass any number.
enum ListType : int {
    NumberedList = 0, // "1)", "2)", ...: a decimal number followed by ")"
    BulletedList = 1, // "&#x2022;"
    OtherList = 2,    // anything else, or no label block at all
};
