// The radios, the sound profile and the music player: shows them, switches them, and follows what others do.
var radios = [
  { name: "wifi", title: "Wi-Fi", state: "HKLM\\System\\Radios\\WiFi\\State", box: widget.wifiBox },
  { name: "phone", title: "Phone", state: "HKLM\\System\\Radios\\Phone\\State", box: widget.phoneBox },
  { name: "bluetooth", title: "Bluetooth", state: "HKLM\\System\\Radios\\Bluetooth\\State", box: widget.bluetoothBox }
];
// In the order of the sound chooser.
/** @type {("on" | "vibrate" | "off")[]} */
var soundProfiles = ["on", "vibrate", "off"];
var soundPath = "HKCU\\ControlPanel\\Sound\\Profile";
var playerKey = "HKCU\\Software\\A_C\\S2P\\";

var devicePage = {
  isPlaying: false,
  isPlayerFollowed: false,

  prepare: function () {
    radios.forEach(this.prepareRadio, this);
    widget.discoverableButton.clicked.connect(this, this.makeDiscoverable);
    widget.soundChooser["activated(int)"].connect(this, this.chooseSound);
    follow(soundPath, this.showSound);
    widget.previousButton.clicked.connect(this, function () { s2pCommand("prev"); });
    widget.playButton.clicked.connect(this, this.playOrPause);
    widget.nextButton.clicked.connect(this, function () { s2pCommand("next"); });
    this.showPlayer();
    this.followPlayer(0);
  },

  // Leaves everything as it was, and the music alone.
  tryOut: function () {
    if (widget.wifiBox.enabled) {
      var on = widget.wifiBox.checked;
      this.switchRadio(radios[0], !on);
      this.switchRadio(radios[0], on);
    }
    var profile = widget.soundChooser.currentIndex;
    this.chooseSound((profile + 1) % soundProfiles.length);
    this.chooseSound(profile);
  },

  prepareRadio: function (radio) {
    var show = function () { devicePage.showRadio(radio); };
    radio.box.enabled = follow(radio.state, show);
    if (radio.name === "bluetooth") {
      widget.discoverableButton.enabled = radio.box.enabled;
    }
    radio.box.clicked.connect(this, function () { this.switchRadio(radio, radio.box.checked); });
  },

  showRadio: function (radio) {
    getRadioStatus(radio.name, this, function (on) { radio.box.checked = on; });
    // It counts as off, so the function does not tell.
    if (radio.name === "bluetooth") {
      widget.discoverableButton.checked = valueAt(radio.state) === 2;
    }
  },

  /** @param {boolean} on */
  switchRadio: function (radio, on) {
    setRadioStatus(radio.name, on);
    this.showRadio(radio);
    this.say(radio.title + " is " + (radio.box.checked ? "on." : "off."));
  },

  makeDiscoverable: function () {
    setBluetoothDiscoverable();
    this.showRadio(radios[2]);
    this.say("Others can find the handheld now.");
  },

  showSound: function () {
    getSoundProfile(widget, function (profile) {
      widget.soundChooser.currentIndex = soundProfiles.indexOf(profile);
    });
  },

  /** @param {number} index */
  chooseSound: function (index) {
    setSoundProfile(soundProfiles[index]);
    this.showSound();
    this.say("The sound profile is \"" + soundProfiles[widget.soundChooser.currentIndex] + "\".");
  },

  playOrPause: function () {
    s2pCommand(this.isPlaying ? "pause" : "play");
    this.followPlayer(20);
  },

  /** What S2P plays is in the registry as soon as it has run for the first time.
   * @param {number} retries how often to look again, half a second later, if it has not */
  followPlayer: function (retries) {
    if (devicePage.isPlayerFollowed) {
      return;
    }
    devicePage.isPlayerFollowed = follow(playerKey + "Status", this.showPlayer);
    if (devicePage.isPlayerFollowed) {
      follow(playerKey + "CurrentTitle", this.showPlayer);
    } else if (retries > 0) {
      setTimeout(function () { devicePage.followPlayer(retries - 1); }, 500);
    }
  },

  showPlayer: function () {
    s2pStatus(widget, function (playing, title, album) {
      devicePage.isPlaying = playing;
      widget.playButton.text = playing ? "Pause" : "Play";
      widget.track.text = title ? title + "\n" + album : "S2P has not played yet.";
    });
  },

  /** @param {string} text */
  say: function (text) {
    tell("Device", widget.deviceResult, text);
  }
};

/** Calls a function now and whenever a registry value changes, but not if it is missing.
 * @param {string} path @param {() => void} show @return {boolean} */
function follow(path, show) {
  var value = valueAt(path);
  var isThere = value !== null && value !== undefined;
  if (isThere) {
    regEventSuscribe(widget, show, path);
    show();
  }
  return isThere;
}
