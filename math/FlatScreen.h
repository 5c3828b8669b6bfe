// SPDX-License-Identifier: MIT
// A projection in which the screen is the unit square, with x to the right and y upward, for as long as the
// object lives:
//
//     {
//         FlatScreen screen;
//         glLoadIdentity(); // the modelview matrix is the caller's
//         DrawRectangle(0, 0, 1, 1);
//     }
//
// The projection that was there is put back at the end. Constructor and destructor leave the matrix mode at
// GL_MODELVIEW. The projection stack of GL need not be deeper than two, so that one must not be nested in
// another. Needs a current GL context.
#pragma once

class FlatScreen
{
public:
    FlatScreen();
    ~FlatScreen();
    FlatScreen(const FlatScreen&) = delete;
    FlatScreen& operator=(const FlatScreen&) = delete;
};
