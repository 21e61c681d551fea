// Keeps a count in the configuration and lists what it finds in the images folder.
getConfig("hello", this, function (values) {
  var count = (values[0] || 0) + 1;
  setConfig("hello", "count", count);
  print("Hello! This is run number " + count + ".");
}, "count");

getFiles("images/app/", "*.png;*.jpg", this, function (files) {
  print("Pictures that came with the host: " + files.length);
});
