WScript.Echo("before");
throw "a text";
