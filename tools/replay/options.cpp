#include "options.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace glidemap::replay {

const char* const helpText =
    R"(Recognises the gestures in touch recordings, with the same driver interface, device manager, engine,
recognizer and dispatcher as for live touches, and prints them in order, with the actions that they
would trigger. No action is performed.

  glidemap-replay [OPTION]... FILE...
  glidemap-replay --demonstrate [--seed N] [--lang en|zh] [--json] [--real-time] [--stats]
  glidemap-replay --write-demonstration FOLDER [--seed N]

FILE is a recording by glidemap-record (JSON Lines), evemu or `libinput record`; - is standard
input. Each file is an independent run; the names of several files precede their output.

  --double-tap COUNT  act as if a double tap of COUNT fingers (2, 3 or 4) were bound: single taps of
                      that count are held back until no second one can follow; may be repeated
  --bindings FILE     the bindings of gestures and clicks, in the format of bindings.json (none);
                      FILE is not modified
  --lang en|zh        the language of names and actions (en)
  --json              print one JSON object per line:
                        {"t":12.345,"gesture":"twoFingerTap","delivered":true,"binding":"5A…",
                         "action":"Shortcut ⌥⌘→","app":"Editor"}
                      for a gesture within 0.25 s of the previous one, delivered is false and the
                      later fields are missing; binding and action are null if no binding matches,
                      app is null if the frontmost application is unknown. Actions follow:
                        {"t":12.345,"keyEvent":{"keyCode":124,"down":true,"flags":1572864}}
                        {"t":12.345,"perform":"launchApp","bundleID":"ID","name":"NAME"}
                        {"t":12.345,"perform":"lockScreen"}      (or "missionControl")
                      each button event of the recording prints
                        {"t":12.345,"button":0,"down":true,"swallowed":false}
                      each of several files is preceded by {"file":"NAME"}
  --real-time         play at the recorded speed, not as fast as possible
  --stats             at the end, print statistics to standard error
  --demonstrate       perform each of the 44 gestures that contacts alone can make, like a hand,
                      and print the recognised gestures
  --write-demonstration FOLDER
                      write the same performances to FOLDER/recording.jsonl, and bindings without
                      effect to FOLDER/Glidemap/bindings.json unless it exists, and print
                      nothing: with these files the program can be shown without a touchpad
  --seed N            vary the performances (1)
  --help              show this help

Exit status: 0 if every recording was read to its end and, with --demonstrate, every performance was
recognised as exactly its intended gesture; 1 when a performance was not, or if the touch driver
cannot be used or output cannot be written; 2 for a missing or malformed recording or bindings file,
and for an invalid command line.
)";

namespace {

constexpr std::array longOptions = {
    option{"double-tap", required_argument, nullptr, 'd'},
    option{"bindings", required_argument, nullptr, 'b'},
    option{"lang", required_argument, nullptr, 'l'},
    option{"json", no_argument, nullptr, 'j'},
    option{"real-time", no_argument, nullptr, 'r'},
    option{"stats", no_argument, nullptr, 's'},
    option{"demonstrate", no_argument, nullptr, 'm'},
    option{"write-demonstration", required_argument, nullptr, 'w'},
    option{"seed", required_argument, nullptr, 'n'},
    option{"help", no_argument, nullptr, 'h'},
    option{nullptr, 0, nullptr, 0},
};

template <typename Number>
std::optional<Number> number(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(value) : std::nullopt;
}

std::optional<UsageError> addDoubleTap(Options& options, std::string_view text) {
    const auto count = number<int>(text);
    if (!count || *count < 2 || *count > 4) {
        return UsageError{"--double-tap takes 2, 3 or 4, not \"" + std::string(text) + "\""};
    }
    options.boundDoubleTaps.insert(*count);
    return std::nullopt;
}

std::optional<UsageError> setSeed(Options& options, std::string_view text) {
    const auto seed = number<std::uint64_t>(text);
    if (!seed) {
        return UsageError{"--seed takes a whole number, not \"" + std::string(text) + "\""};
    }
    options.seed = *seed;
    return std::nullopt;
}

std::optional<UsageError> setLanguage(Options& options, const std::string& code) {
    if (code != "en" && code != "zh") {
        return UsageError{"--lang takes en or zh, not \"" + code + "\""};
    }
    options.language = code;
    return std::nullopt;
}

std::optional<UsageError> check(const Options& options, bool hasSeed) {
    if (options.demonstrate && !options.files.empty()) {
        return UsageError{"--demonstrate does not play files"};
    }
    if (options.demonstrate && !options.boundDoubleTaps.empty()) {
        return UsageError{"--demonstrate cannot be combined with --double-tap"};
    }
    if (options.demonstrate && options.bindingsFile) {
        return UsageError{"--demonstrate cannot be combined with --bindings"};
    }
    const bool performs = options.demonstrate || options.demonstrationFolder;
    if (hasSeed && !performs) {
        return UsageError{"--seed needs --demonstrate or --write-demonstration"};
    }
    if (options.demonstrationFolder && (options.demonstrate || !options.files.empty())) {
        return UsageError{
            "--write-demonstration cannot be combined with --demonstrate or with files"};
    }
    if (!performs && options.files.empty()) {
        return UsageError{"no recording given"};
    }
    return std::nullopt;
}

bool isOurs(int letter) {
    return std::any_of(longOptions.begin(), longOptions.end(),
                       [letter](const option& known) { return known.val == letter; });
}

std::string optionError(int result, char** arguments) {
    if (result == '?' && optopt != 0 && !isOurs(optopt)) {
        return std::string("unknown option -") + static_cast<char>(optopt);
    }
    const std::string argument = arguments[optind - 1]; // getopt has already advanced past it
    return result == ':' ? argument + " needs a value" : "invalid option " + argument;
}

} // namespace

std::variant<Options, HelpRequest, UsageError> parseOptions(int count, char** arguments) {
    Options options;
    bool hasSeed = false;
    std::optional<UsageError> error;
    opterr = 0; // getopt must not print messages
    int result = 0;
    const auto next = [&] {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): no other thread is running yet
        return getopt_long(count, arguments, ":", longOptions.data(), nullptr);
    };
    while (!error && (result = next()) != -1) {
        switch (result) {
        case 'd':
            error = addDoubleTap(options, optarg);
            break;
        case 'b':
            options.bindingsFile = optarg;
            break;
        case 'l':
            error = setLanguage(options, optarg);
            break;
        case 'j':
            options.json = true;
            break;
        case 'r':
            options.realTime = true;
            break;
        case 's':
            options.stats = true;
            break;
        case 'm':
            options.demonstrate = true;
            break;
        case 'w':
            options.demonstrationFolder = optarg;
            break;
        case 'n':
            hasSeed = true;
            error = setSeed(options, optarg);
            break;
        case 'h':
            return HelpRequest{};
        default:
            error = UsageError{optionError(result, arguments)};
        }
    }
    options.files.assign(arguments + optind, arguments + count);
    error = error ? error : check(options, hasSeed);
    if (error) {
        return *error;
    }
    return options;
}

} // namespace glidemap::replay
