var bag = new ActiveXObject("Pellorin.ParmBag");
