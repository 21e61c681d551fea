// Asks who is there, but only once, keeps a count in the configuration and lists what it finds in the images folder.
getConfig("hello", this, function (values) {
  if (values[0] === null) {
    textInput("What is your name?", "", this, function (ok, text) {
      setConfig("hello", "name", text || "stranger");
    });
  }
}, "name");

getConfig("hello", this, function (values) {
  var count = (values[0] || 0) + 1;
  setConfig("hello", "count", count);
  print("Hello, " + values[1] + "! This is run number " + count + ".");
}, "count", "name");

getFiles("images/app/", "*.png;*.jpg", this, function (files) {
  print("Pictures that came with the host: " + files.length);
});
