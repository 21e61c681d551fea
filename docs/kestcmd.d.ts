// What widget scripts see: the forty functions of kestcmd, and holm's own globals.
// docs/functions.md explains each function, docs/widgets.md the globals.

// files/

/** Lists the files of a folder by name, as absolute paths; filters are wildcards separated by ";". An empty path is ignored: no callback. */
declare function getFiles<T>(path: string, filters: string, thisObject: T, callback: (this: T, files: string[]) => void): void;

/** Lists the folders in a folder by name, as absolute paths. An empty path is ignored: no callback. */
declare function getDirs<T>(path: string, thisObject: T, callback: (this: T, folders: string[]) => void): void;

/** Starts a program or opens a document; only a file whose name holds ".exe" gets parameters. Failures are not reported. */
declare function launch(file: string): void;
declare function launch(file: string, parameters: string, ...ignored: unknown[]): void;

/** Deletes one file inside the application directory. */
declare function deleteFile(path: string): void;

/** Deletes a folder inside the application directory; with everything in it if recursive (default false) is true, else only if empty. */
declare function deleteDir(path: string, recursive?: boolean): void;

// provider/: configuration

/** Stores values by section and key: numbers, booleans, and texts; anything else as its text. */
declare function setConfig(section: string, key: string, value: unknown, ...moreKeysAndValues: unknown[]): void;

/** Reads values by section and key; null where nothing is stored. */
declare function getConfig<T extends object>(section: string, thisObject: T, callback: (this: T, values: KestStoredValue[]) => void, key: string, ...moreKeys: string[]): void;

/** Deletes one value, or without a key the whole section. */
declare function deleteConfig(section: string): void;
declare function deleteConfig(section: string, key: string): void;

// registry/

/** Reads a registry value: a text, a number, or undefined if there is no such key. No callback if the key has no such value, or one of another type. An empty path is ignored. */
declare function readReg<T>(path: string, thisObject: T, callback: (this: T, value: string | number | undefined) => void): void;

/** Writes a registry value: a text, or a number, of which the whole 32 bits are kept. A missing key is not made: nothing is written then. An empty path is ignored. */
declare function writeReg(path: string, value: string | number): void;

/** Calls back whenever a registry value changes, until it is undone. The object is a QObject: widget or a part of it. "before" is always the value when watching began, a text with "\u0000" at its end; "now" is undefined if the value was deleted. The key has to exist. */
declare function regEventSuscribe<T extends object>(object: T, callback: (this: T, path: string, before: string | number | undefined, now: string | number | undefined) => void, path: string): void;

/** Undoes the latest regEventSuscribe of the object with this path; not to be called more often than that. */
declare function regEventUnSuscribe(object: object, path: string): void;

// dialogs/

/** Lets the user choose a file or, with folderMode, a folder; null if cancelled. Begins in the application directory; filters are wildcards with ";" between them. showFolders (default true) counts only as the last argument, and has to be a boolean for folderMode to count. */
declare function browseFiles<T extends object>(thisObject: T, callback: (this: T, path: string | null) => void, folder?: string, filters?: string, showFolders?: unknown, folderMode?: unknown): void;

/** Asks for a line of text; ok is false and the text empty if cancelled. */
declare function textInput<T extends object>(label: string, text: string, thisObject: T, callback: (this: T, ok: boolean, text: string) => void): void;

/** Asks for a whole number; if cancelled, ok is false and value comes back. With a maximum, the greatest number allowed is minimum; with a step as the last argument, the step is maximum. mode is ignored. */
declare function numInput<T extends object>(thisObject: T, callback: (this: T, ok: boolean, value: number) => void, label: string, value: number, minimum?: unknown, maximum?: unknown, step?: unknown, mode?: unknown): void;

/** Lets the user choose from entries, the one at index selected at first; (false, null, -1) if cancelled. The label is not shown. With valueOnOdd the entries are pairs of a text to show and a value to answer with. */
declare function listInput<T extends object>(thisObject: T, callback: (this: T, ok: boolean, text: string | null, index: number) => void, label: string, index: number, entries: unknown[], valueOnOdd?: boolean): void;
/** Lets the user choose from, or edit, a list kept in the configuration as one text (separator default ";"; always that once edited). Without byIndex (default true) the entry selected at first is given by its text. (false, null, 0) if nothing is stored and editable (default false) is not set; a list of pairs cannot be edited. */
declare function listInput<T extends object>(thisObject: T, callback: (this: T, ok: boolean, text: string | null, index: number) => void, label: string, indexOrText: number | string, section: string, key: string, separator?: string, valueOnOdd?: boolean, byIndex?: unknown, editable?: boolean): void;

/** Lets the user choose a contact; its object identifier, or 0 if cancelled. */
declare function selectContact<T extends object>(thisObject: T, callback: (this: T, oid: number) => void): void;

// device/

/** Drives the music player S2P. "play" and "pause" are the same: each starts S2P if it does not run, and else changes from one to the other. */
declare function s2pCommand(command: "play" | "pause" | "next" | "prev"): void;

/** What the music player S2P plays; false and empty texts if it never ran. */
declare function s2pStatus<T extends object>(thisObject: T, callback: (this: T, playing: boolean, title: string, album: string) => void): void;

/** Whether a radio is on; a discoverable Bluetooth radio counts as off. A message box and false if there is no such radio. */
declare function getRadioStatus<T extends object>(radio: "bluetooth" | "wifi" | "phone", thisObject: T, callback: (this: T, on: boolean) => void): void;

/** Switches a radio on or off. A message box if it is so already, or if there is no such radio. */
declare function setRadioStatus(radio: "bluetooth" | "wifi" | "phone", on: boolean): void;

/** Makes the Bluetooth radio discoverable; arguments are ignored. */
declare function setBluetoothDiscoverable(...ignored: unknown[]): void;

/** The sound profile. thisObject is a QObject: widget or a part of it. */
declare function getSoundProfile<T extends object>(thisObject: T, callback: (this: T, profile: "on" | "vibrate" | "off") => void): void;

/** Sets the sound profile. Any other text counts as "on". */
declare function setSoundProfile(profile: "on" | "vibrate" | "off"): void;

// network/

/** Fetches a text over plain HTTP; "http://" may be missing. Calls back later: (false, text), or (true, message), which (false, what there was) may follow. Bad arguments are ignored. */
declare function getUrl<T extends object>(url: string, thisObject: T, callback: (this: T, error: boolean, textOrMessage: string) => void): void;

/** Fetches an RSS feed as getUrl does a text: (false, items, title), or (true, message), which a second call may follow. Of a text in pieces only the last one counts. */
declare function getRSSFeed<T extends object>(url: string, thisObject: T, callback: (this: T, error: boolean, items: KestResultOrMessage<KestFeedItem[]>, title?: string) => void): void;

/** Fetches a weather feed as getUrl does a text: (false, record), or (true, message), which a second call may follow. */
declare function getWeather<T extends object>(url: string, thisObject: T, callback: (this: T, error: boolean, weather: KestResultOrMessage<KestWeather>) => void): void;

// pim/

/** Saves a contact's photo, or with ask a picture that the user chooses, to a picture file: "true", or "false" if none was saved. */
declare function contactImage<T extends object>(thisObject: T, callback: (this: T, result: "true" | "false") => void, oid: number, destination: string, ask: boolean): void;
/** In a size of its own, in pixels; 0 keeps a side of the contact's photo as it is. */
declare function contactImage<T extends object>(thisObject: T, callback: (this: T, result: "true" | "false") => void, oid: number, destination: string, ask: boolean, width: number, height: number): void;

/** The details of a contact; null if there is none of that object identifier. */
declare function contactInfo<T extends object>(oid: number, thisObject: T, callback: (this: T, contact: KestContact | null) => void): void;

/** Calls back with 0 and the item's object identifier whenever another program adds, changes or deletes an item of the folder, until it is undone. The object is a QObject: widget or a part of it. */
declare function poomEventSuscribe<T extends object>(object: T, callback: (this: T, zero: number, oid: number) => void, folder: "Contacts" | "Tasks" | "Appointments"): void;

/** Undoes the latest poomEventSuscribe of the object with this folder. */
declare function poomEventUnSuscribe(object: object, folder: "Contacts" | "Tasks" | "Appointments"): void;

/** The next appointments by their starts, each occurrence of a series being one; at most count (default 10); dateFormat "MM/dd/yyyy", timeFormat "HH:mm". */
declare function getAppointments<T extends object>(thisObject: T, callback: (this: T, appointments: KestAppointment[]) => void, count?: number, dateFormat?: string, timeFormat?: string): void;

/** Tasks that are not done: those "Overdued", those "NotDued" (due today or later, or without a date), by default those due today; at most count - 1 (count default 100). By start date (default) or, with false, by due date, the latest first; dateFormat "MM/dd/yyyy". A date that is not set is 1 January 4501. */
declare function getTasks<T extends object>(thisObject: T, callback: (this: T, tasks: KestTask[]) => void, filter?: string, count?: number, dateFormat?: string, byStartDate?: boolean): void;

// programs/

/** Saves the icon of a program, shortcut or library to a picture file, or with ask a picture that the user chooses. "exe" or "lnk" if the source ends so and there was none, "mscr" for such a source, else "true". */
declare function extractIcon<T extends object>(thisObject: T, callback: (this: T, result: "true" | "mscr" | "exe" | "lnk") => void, source: string, destination: string, ask: boolean, large: boolean): void;
/** In a size of its own, in pixels; 0 keeps a side of the icon as it is. */
declare function extractIcon<T extends object>(thisObject: T, callback: (this: T, result: "true" | "mscr" | "exe" | "lnk") => void, source: string, destination: string, ask: boolean, large: boolean, width: number, height: number): void;

/** Shows the Programs menu and starts what the user chooses; the folder defaults to the device's Programs folder. */
declare function openProgramsFolder(folder?: string): void;

/** Reads a folder of the Programs menu ahead of time; the folder defaults to the device's Programs folder. */
declare function cacheProgramsFolder(folder?: string): void;

/** Brings a window to the front. */
declare function focusWindow(entry: KestRunningProcess): void;

/** Lists the windows of running programs, the uppermost first, with pictures named prefix plus window number, or the stock picture; first frees the pictures of the previous list. */
declare function runningProcesses<T extends object>(prefix: string, pictures: "none" | "icons" | "snapshots" | null, thisObject: T, callback: (this: T, entries: KestRunningProcess[]) => void, previous?: KestRunningProcess[]): void;

/** Asks a window to close. */
declare function closeWindow(entry: KestRunningProcess): void;

/** Frees the pictures of a list from runningProcesses. */
declare function clearRunningProcessesResources(entries: KestRunningProcess[]): void;

// Records

/** A value as getConfig gives it; "any", for the script knows what it stored. */
type KestStoredValue = any;

/** One or the other, as the error flag in front of it says; typed as both, so that scripts need no casts. */
type KestResultOrMessage<T> = T & string;

interface KestFeedItem {
    title?: string;
    description?: string;
}

/** Only what the feed holds; of several days of forecast the last. What is no number is 0, and so is one with decimals where a whole number belongs. */
interface KestWeather {
    city?: string;
    country?: string;
    tempUnit?: string;
    distUnit?: string;
    pressUnit?: string;
    speedUnit?: string;
    /** A whole number, as are pressure, the codes and the temperatures. */
    humidity?: number;
    visibility?: string;
    pressure?: number;
    condition?: string;
    conditionCode?: number;
    currentTemp?: number;
    low?: number;
    high?: number;
    fcondition?: string;
    fconditionCode?: number;
    windSpeed?: number;
    windDirection?: number;
}

/** All of a contact's properties; empty where nothing is set. Dates are "MM/dd/yyyy". */
interface KestContact {
    businessFaxNumber: string;
    companyName: string;
    department: string;
    email1Address: string;
    mobileTelephoneNumber: string;
    officeLocation: string;
    pagerNumber: string;
    businessTelephoneNumber: string;
    jobTitle: string;
    homeTelephoneNumber: string;
    email2Address: string;
    spouse: string;
    email3Address: string;
    home2TelephoneNumber: string;
    homeFaxNumber: string;
    carTelephoneNumber: string;
    assistantName: string;
    assistantTelephoneNumber: string;
    children: string;
    categories: string;
    webPage: string;
    business2TelephoneNumber: string;
    title: string;
    firstName: string;
    middleName: string;
    lastName: string;
    suffix: string;
    homeAddressStreet: string;
    homeAddressCity: string;
    homeAddressState: string;
    homeAddressPostalCode: string;
    homeAddressCountry: string;
    otherAddressStreet: string;
    otherAddressCity: string;
    otherAddressState: string;
    otherAddressPostalCode: string;
    otherAddressCountry: string;
    businessAddressStreet: string;
    businessAddressCity: string;
    businessAddressState: string;
    businessAddressPostalCode: string;
    businessAddressCountry: string;
    radioTelephoneNumber: string;
    fileAs: string;
    body: string;
    yomiCompanyName: string;
    yomiFirstName: string;
    yomiLastName: string;
    birthday: string;
    anniversary: string;
}

interface KestAppointment {
    subject: string;
    /** Date and time, a blank between them. */
    startDate: string;
}

interface KestTask {
    subject: string;
    startDate: string;
    dueDate: string;
}

interface KestRunningProcess {
    /** The window's title. */
    name: string;
    hWnd: number;
    /** The resource name of its picture, for KestImage. */
    imgRes?: string;
}

// holm

/** Writes a line to standard output: its arguments as texts, a blank between them. */
declare function print(...values: any[]): void;

/** Calls a function once, after so many milliseconds (default 0), with the further arguments; returns a number for clearTimeout. */
declare function setTimeout(callback: (...values: any[]) => void, milliseconds?: number, ...values: any[]): number;

/** Calls a function every so many milliseconds (default 0), with the further arguments; returns a number for clearInterval. */
declare function setInterval(callback: (...values: any[]) => void, milliseconds?: number, ...values: any[]): number;

/** Stops a timer; does nothing if it has fired or never was. */
declare function clearTimeout(timer: number): void;

/** Stops a timer; does nothing if it never was. */
declare function clearInterval(timer: number): void;

/** Runs another script in the global scope; its path is relative to the file that includes it. Returns the value of its last statement. */
declare function include(file: string): any;

/** Ends the run with an exit status (default 0). Nothing after the call is executed. */
declare function quit(status?: number): never;

/** What stands behind the widget on holm's command line. */
declare var args: string[];

/** The window made from widget.ui: the properties, signals and slots of its class, and its named children. Without a widget.ui, reading it is an error. */
declare var widget: KestWidget;

/** Answers dialogs. Only the script of --robot sees it, and of all the rest only print. */
declare var robot: HolmRobot;

/** Acts on the dialog that has the input, by mouse and keys. What cannot be done, or without an open dialog, is thrown as an Error. */
interface HolmRobot {
    /** Has a function called for each modal dialog that opens: its properties, signals and slots, and its named children. A dialog that nobody closes within 5 seconds ends the run with status 3. */
    onDialog(handler: (dialog: KestWidget) => void): void;
    /** Types a text into what has the focus. */
    type(text: string): void;
    /** Presses a key, such as "Return", "PgDown" or "Ctrl+A". */
    key(name: string): void;
    /** Clicks a button, an action of a menu or a row of a list by its text, without "&". */
    click(text: string): void;
    /** Clicks a place in the dialog, in pixels. */
    clickAt(x: number, y: number): void;
    /** The texts of the rows of the dialog's list. */
    rows(): string[];
    /** The text of the selected row of the dialog's list. */
    selected(): string | null;
    /** Accepts the dialog, if one is open: by its button or else with Return. */
    accept(): void;
    /** Cancels the dialog, if one is open: by its button, or the action "actionExit" of its menu bar, or else with Esc. */
    cancel(): void;
    /** Saves a picture of the dialog. */
    screenshot(file: string): void;
    /** Waits so many milliseconds, also without a dialog. */
    wait(milliseconds: number): void;
    /** As the global print, also without a dialog. */
    print(...values: any[]): void;
}

interface KestWidget {
    [member: string]: any;
}
