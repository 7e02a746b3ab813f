// The two named constants of the language.
#pragma once

constexpr double pi = 3.141592653589793;
constexpr double euler = 2.718281828459045;
