WScript.Echo "Zürich 100 €"
