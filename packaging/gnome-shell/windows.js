// Reports the windows and the focused window to Glidemap over the session's bus, because GNOME
// Shell gives this information only to extensions. Only identities leave the shell. The only
// incoming requests are for the actions of gestures: they focus a window, or a program that is
// being launched.
//
// The object belongs to the shell and is reached under the shell's name. Windows are reported in the
// order in which they were opened, as (desktop entry, class, instance, title, process), with empty
// strings or 0 for unknown values. The active window is a list of one element, or empty. The title is
// empty if anything else identifies the window.
//
// The extension serves only the program that installed it: "program" beside this file is a link to
// that program. Its connection requests the windows once and then receives every change. Other
// programs see only that the extension has started.

const OBJECT_PATH = '/org/glidemap/Windows';
const DESCRIPTION = `<node>
    <interface name="org.glidemap.Windows">
        <method name="GetWindows">
            <arg name="windows" type="a(ssssu)" direction="out"/>
            <arg name="active" type="a(ssssu)" direction="out"/>
        </method>
        <method name="BringForward">
            <arg name="windows" type="a(ssssu)" direction="in"/>
            <arg name="found" type="b" direction="out"/>
        </method>
        <method name="TokenForLaunch">
            <arg name="entry" type="s" direction="in"/>
            <arg name="token" type="s" direction="out"/>
        </method>
        <signal name="WindowsChanged">
            <arg name="windows" type="a(ssssu)"/>
            <arg name="active" type="a(ssssu)"/>
        </signal>
        <signal name="Started"/>
        <signal name="Stopped"/>
    </interface>
</node>`;

class WindowsService {
    constructor(folder) {
        this._folder = folder;
    }

    start() {
        this._listeners = new Map(); // bus names, with the watches that report their end
        this._tracker = Shell.WindowTracker.get_default();
        this._object = Gio.DBusExportedObject.wrapJSObject(DESCRIPTION, this);
        this._object.export(Gio.DBus.session, OBJECT_PATH);
        this._focusChanged = global.display.connect(
            'notify::focus-window', () => this._tellSoon());
        // Also emitted when a window gets a class, or its application is recognised.
        this._windowsChanged = this._tracker.connect(
            'tracked-windows-changed', () => this._tellSoon());
        this._object.emit_signal('Started', null);
    }

    stop() {
        global.display.disconnect(this._focusChanged);
        this._tracker.disconnect(this._windowsChanged);
        if (this._telling)
            GLib.source_remove(this._telling);
        this._telling = 0;
        this._object.emit_signal('Stopped', null);
        this._object.flush();
        this._object.unexport();
        this._object = null;
        for (const watch of this._listeners.values())
            Gio.bus_unwatch_name(watch);
        this._listeners.clear();
        this._tracker = null;
    }

    GetWindowsAsync(_parameters, invocation) {
        const sender = invocation.get_sender();
        this._findProgramOf(sender, program => {
            if (!this._object || !program || program !== this._ownProgram()) {
                invocation.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied',
                    'Only Glidemap may ask for windows');
                return;
            }
            this._addListener(sender);
            invocation.return_value(this._windows());
        });
    }

    // Activates the most recently used of the windows, in the window switcher's order.
    BringForwardAsync([wanted], invocation) {
        if (!this._listeners.has(invocation.get_sender())) {
            invocation.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied',
                'Only Glidemap may bring windows forward');
            return;
        }
        const wantedIdentities = new Set(wanted.map(identity => JSON.stringify(identity)));
        const found = global.display.get_tab_list(Meta.TabList.NORMAL_ALL, null).find(
            window => wantedIdentities.has(JSON.stringify(this._identity(window))));
        if (found)
            this._activate(found);
        invocation.return_value(new GLib.Variant('(b)', [Boolean(found)]));
    }

    // Creates a launch token, as the dash does for a program that it launches. `entry` is the file
    // name of a desktop entry, which the shell may not know.
    TokenForLaunchAsync([entry], invocation) {
        if (!this._listeners.has(invocation.get_sender())) {
            invocation.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied',
                'Only Glidemap may launch');
            return;
        }
        const application = Shell.AppSystem.get_default().lookup_app(entry);
        const info = application ? application.get_app_info() : Gio.AppInfo.create_from_commandline(
            'true', entry, Gio.AppInfoCreateFlags.SUPPORTS_STARTUP_NOTIFICATION);
        const context = global.create_app_launch_context(
            global.display.get_current_time_roundtrip(), -1);
        const token = context.get_startup_notify_id(info, []) || '';
        invocation.return_value(new GLib.Variant('(s)', [token]));
    }

    _activate(window) {
        const time = global.display.get_current_time_roundtrip();
        const workspace = window.get_workspace();
        if (workspace === global.workspace_manager.get_active_workspace())
            window.activate(time);
        else
            workspace.activate_with_focus(window, time);
    }

    // Returns the path of the installed program, or null.
    _ownProgram() {
        try {
            return GLib.file_read_link(`${this._folder}/program`);
        } catch (error) {
            return null;
        }
    }

    // Calls back with the executable of the process behind a bus name, or null.
    _findProgramOf(name, found) {
        Gio.DBus.session.call('org.freedesktop.DBus', '/org/freedesktop/DBus',
            'org.freedesktop.DBus', 'GetConnectionUnixProcessID', new GLib.Variant('(s)', [name]),
            new GLib.VariantType('(u)'), Gio.DBusCallFlags.NONE, -1, null, (bus, result) => {
                let program = null;
                try {
                    const [process] = bus.call_finish(result).deepUnpack();
                    // An upgrade may have replaced the file of the running program.
                    program = GLib.file_read_link(`/proc/${process}/exe`)
                        .replace(/ \(deleted\)$/, '');
                } catch (error) {
                    // The caller has ended, or belongs to another user.
                }
                found(program);
            });
    }

    _addListener(name) {
        if (this._listeners.has(name))
            return;
        this._listeners.set(name, Gio.bus_watch_name_on_connection(
            Gio.DBus.session, name, Gio.BusNameWatcherFlags.NONE, null, () => {
                if (!this._listeners.has(name))
                    return;
                Gio.bus_unwatch_name(this._listeners.get(name));
                this._listeners.delete(name);
            }));
    }

    _windows() {
        const active = global.display.focus_window;
        const all = global.display.get_tab_list(Meta.TabList.NORMAL_ALL, null);
        all.sort((one, other) => one.get_stable_sequence() - other.get_stable_sequence());
        return new GLib.Variant('(a(ssssu)a(ssssu))', [
            all.map(window => this._identity(window)),
            active ? [this._identity(active)] : [],
        ]);
    }

    // Combines simultaneous changes into one report, because the focus passes through "no window".
    _tellSoon() {
        if (this._telling || this._listeners.size === 0)
            return;
        this._telling = GLib.idle_add(GLib.PRIORITY_DEFAULT, () => {
            this._telling = 0;
            const windows = this._windows();
            for (const name of this._listeners.keys()) {
                Gio.DBus.session.emit_signal(
                    name, OBJECT_PATH, 'org.glidemap.Windows', 'WindowsChanged', windows);
            }
            return GLib.SOURCE_REMOVE;
        });
    }

    _identity(window) {
        const application = this._tracker.get_window_app(window);
        // For a window without a known application the shell invents one.
        const known = application && !application.is_window_backed();
        const entry = known ? application.get_id() : '';
        const windowClass = window.get_gtk_application_id() || window.get_wm_class() || '';
        const instance = window.get_wm_class_instance() || '';
        const process = Math.max(window.get_pid(), 0);
        const isIdentified = entry || windowClass || instance || process;
        const title = isIdentified ? '' : window.get_title() || '';
        return [entry, windowClass, instance, title, process];
    }
}
