// Tells which windows there are and which one has the focus, on the session's bus: GNOME Shell
// tells it to nobody but what runs in it. Only identities leave the shell, and nothing comes in.
//
// The object is the shell's own, found under the name of the shell: no other program can pose
// as it. Windows are told in the order in which they were opened, as (desktop entry, class,
// instance, title, process), empty or 0 where the shell does not know; the active one in a list of
// one or none.

const OBJECT_PATH = '/org/glidemap/Windows';
const DESCRIPTION = `<node>
    <interface name="org.glidemap.Windows">
        <method name="GetWindows">
            <arg name="windows" type="a(ssssu)" direction="out"/>
            <arg name="active" type="a(ssssu)" direction="out"/>
        </method>
        <signal name="WindowsChanged">
            <arg name="windows" type="a(ssssu)"/>
            <arg name="active" type="a(ssssu)"/>
        </signal>
        <signal name="Stopped"/>
    </interface>
</node>`;

class WindowsService {
    start() {
        this._tracker = Shell.WindowTracker.get_default();
        this._object = Gio.DBusExportedObject.wrapJSObject(DESCRIPTION, this);
        this._object.export(Gio.DBus.session, OBJECT_PATH);
        this._focusChanged = global.display.connect(
            'notify::focus-window', () => this._tellSoon());
        // Also when a window gets a class, or an application is recognised in it.
        this._windowsChanged = this._tracker.connect(
            'tracked-windows-changed', () => this._tellSoon());
        this._tellSoon();
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
        this._tracker = null;
    }

    GetWindows() {
        const active = global.display.focus_window;
        const all = global.display.get_tab_list(Meta.TabList.NORMAL_ALL, null);
        all.sort((one, other) => one.get_stable_sequence() - other.get_stable_sequence());
        return [
            all.map(window => this._identity(window)),
            active ? [this._identity(active)] : [],
        ];
    }

    // What changes together is told once: the focus passes through no window at all.
    _tellSoon() {
        if (this._telling)
            return;
        this._telling = GLib.idle_add(GLib.PRIORITY_DEFAULT, () => {
            this._telling = 0;
            this._object.emit_signal(
                'WindowsChanged', new GLib.Variant('(a(ssssu)a(ssssu))', this.GetWindows()));
            return GLib.SOURCE_REMOVE;
        });
    }

    _identity(window) {
        const application = this._tracker.get_window_app(window);
        // For a window of no known application the shell makes one up.
        const known = application && !application.is_window_backed();
        return [
            known ? application.get_id() : '',
            window.get_gtk_application_id() || window.get_wm_class() || '',
            window.get_wm_class_instance() || '',
            window.get_title() || '',
            Math.max(window.get_pid(), 0),
        ];
    }
}
