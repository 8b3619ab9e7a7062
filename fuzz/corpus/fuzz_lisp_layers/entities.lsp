(setq e (entnext))
(entget (tblobjname "LAYER" "0"))
(command "-LAYER" "S" "Plan`#1" "ON" "*" "LO" "A?B" "")
(getvar "CLAYER")
