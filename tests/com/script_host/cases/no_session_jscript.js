var quillet = new ActiveXObject("Wendrill23.CQuillet");
