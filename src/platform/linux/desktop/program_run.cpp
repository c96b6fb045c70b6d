#include "platform/linux/desktop/program_run.h"

#include "platform/linux/desktop/glib_owner.h"

#include <gio/gio.h>

#include <utility>

namespace glidemap {

struct ProgramRun::State {
    std::function<void(bool)> ended;

    using Weak = std::weak_ptr<State>;

    static void report(const Weak& weak, bool succeeded) {
        const std::shared_ptr<State> state = weak.lock();
        if (state != nullptr && state->ended) {
            std::exchange(state->ended, nullptr)(succeeded);
        }
    }

    static void waited(GObject* process, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Weak> weak(static_cast<Weak*>(data));
        report(*weak,
               g_subprocess_wait_check_finish(G_SUBPROCESS(process), result, nullptr) != FALSE);
    }

    static gboolean notStarted(gpointer data) {
        report(*static_cast<Weak*>(data), false);
        return G_SOURCE_REMOVE;
    }

    static void forget(gpointer data) { delete static_cast<Weak*>(data); }

    static void reportLater(const std::shared_ptr<State>& state) {
        GSource* const source = g_idle_source_new();
        g_source_set_callback(source, notStarted, new Weak(state), forget);
        g_source_attach(source, g_main_context_get_thread_default());
        g_source_unref(source);
    }
};

ProgramRun::ProgramRun(const std::vector<std::string>& words,
                       std::function<void(bool succeeded)> ended)
    : state(std::make_shared<State>()) {
    state->ended = std::move(ended);
    std::vector<const char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words) {
        arguments.push_back(word.c_str());
    }
    arguments.push_back(nullptr);
    constexpr auto silent = static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_SILENCE |
                                                          G_SUBPROCESS_FLAGS_STDERR_SILENCE);
    // The pending wait holds a reference to the process.
    const GlibOwner<GSubprocess> process(g_subprocess_newv(arguments.data(), silent, nullptr));
    if (process == nullptr) {
        State::reportLater(state);
        return;
    }
    g_subprocess_wait_check_async(process.get(), nullptr, State::waited, new State::Weak(state));
}

ProgramRun::~ProgramRun() = default;

} // namespace glidemap
