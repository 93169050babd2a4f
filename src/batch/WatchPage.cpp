#include "batch/WatchPage.h"

#include <cstdio>
#include <string_view>

namespace nestrix {

namespace {

// A picture is loaded aside and put in place when it is there, so that nothing flickers, and one that cannot
// be loaded leaves the last one standing. The number behind the name has the browser look again.
constexpr std::string_view BEFORE_NAME = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Nestrix: best packing so far</title>
<style>
html, body { height: 100%; margin: 0; background: #f4f5f7; color: #30343b; font: 14px sans-serif; }
body { display: flex; flex-direction: column; }
#picture { flex: 1; min-height: 0; object-fit: contain; margin: 1em; }
#state { margin: 0 1em 1em; text-align: center; }
</style>
</head>
<body>
<img id="picture" alt="the best packing so far">
<p id="state">No packing yet.</p>
<script>
"use strict";
const name = ")";

constexpr std::string_view BEHIND_NAME = R"(";
let shown = 0;
function look() {
    const next = new Image();
    next.onload = () => {
        const old = document.getElementById("picture");
        next.id = old.id;
        next.alt = old.alt;
        next.dataset.shown = ++shown;
        old.replaceWith(next);
        document.getElementById("state").textContent = "As of " + new Date().toLocaleTimeString();
        setTimeout(look, 1000);
    };
    next.onerror = () => setTimeout(look, 1000);
    next.src = name + "?" + Date.now();
}
look();
</script>
</body>
</html>
)";

/// The name as a part of an address, and so also within quotes of a script.
std::string Escaped(const std::string& name) {
    constexpr std::string_view PLAIN = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.~";
    std::string escaped;
    for (const char c : name) {
        if (PLAIN.find(c) != std::string_view::npos) {
            escaped += c;
            continue;
        }
        char code[4];
        std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned int>(static_cast<unsigned char>(c)));
        escaped += code;
    }
    return escaped;
}

}  // namespace

std::string WatchPage(const std::string& picture) {
    return std::string(BEFORE_NAME) + Escaped(picture) + std::string(BEHIND_NAME);
}

}  // namespace nestrix
