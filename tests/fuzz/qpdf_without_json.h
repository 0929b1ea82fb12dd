#pragma once

// Included before everything else where clang compiles libqpdf's headers: in C++20 and later members of
// std::vector are constexpr, and clang 19 looks at std::vector<JSON> where JSON is still incomplete. Our own
// code uses nothing of that header.
#define JSON_HH
class JSON;
