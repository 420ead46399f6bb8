var quillet = new ActiveXObject("Wendrill23.CQuillet");
quillet.Comand = "JI";
