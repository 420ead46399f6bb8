var quillet = new ActiveXObject("Wendrill23.CQuillet");
var text = quillet.LastBufer.substr(0, 80);
