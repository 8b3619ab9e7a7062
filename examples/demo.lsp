(progn
  ;; ardo demo: what a suite module does with the central layer control.
  ;; Run:  ardo-cad examples/drawings/office.dxf -s examples/demo.lsp -o office-demo.dxf
  ;; Every layer is asked for by key; names and properties come from DefaultIni/Ardo.ini.
  ;; A script line is a LISP expression or a command line, so comments live inside the forms.
  (setq demo:log nil)
  (princ))

(defun demo:note (text)
  ;; Remembers one line for the summary and prints it now.
  (setq demo:log (cons text demo:log))
  (princ (strcat "\n  " text)))

(defun demo:str (value) (vl-princ-to-string value))

(defun demo:states (bits / words)
  ;; State bits as words: aus/off, gefroren/frozen, gesperrt/locked, ...
  (cond
    ((not bits) "nil")
    (T
     (foreach pair '((1 "aus/off") (2 "gefroren/frozen") (4 "gesperrt/locked")
                     (16 "neue AF gefroren/frozen in new viewports") (32 "aktuell/current"))
       (if (= (logand bits (car pair)) (car pair)) (setq words (cons (cadr pair) words))))
     (strcat (itoa bits) (if words (strcat " = " (demo:join (reverse words) ", ")) " = an/on")))))

(defun demo:bits (record / flags)
  ;; The state bits of a LAYER table record: off from the colour's sign, the rest from code 70.
  (setq flags (cdr (assoc 70 record)))
  (+ (if (minusp (cdr (assoc 62 record))) 1 0) (* 2 (logand flags 1)) (* 8 (logand flags 2)) (logand flags 4)
     (if (= (strcase (cdr (assoc 2 record))) (strcase (getvar "CLAYER"))) 32 0)))

(defun demo:join (items sep / out)
  (foreach item items (setq out (if out (strcat out sep item) item)))
  (if out out ""))

(defun demo:make (key why / bits)
  ;; Makes the layer of one key and notes its name, properties and state bits.
  (setq bits (kemb_newlayer "DEMO" key))
  (demo:note (strcat key " -> \"" (kemb_getlayername "DEMO" key) "\"  " why
                     "  [" (demo:states bits) "]"))
  bits)

(progn
  (princ "\n=== ardo demo: Layer per Schlüssel / layers by key ===")
  (princ (strcat "\nZentrale Layersteuerdatei / central file: " (demo:str (Kemb_GetLayerFile "DEMO"))))
  (princ))

(progn
  ;; 1. Layers by key, each showing a property of the office standard.
  (princ "\n\n1. Neue Layer / new layers:")
  (demo:make "A_WAND_TRAG" "Farbe 7, Linienstärke 0.50 mm")
  (demo:make "A_ACHSE" "Linientyp ARDO_STRICHPUNKT aus ardo.lin, 0.18 mm")
  (demo:make "G_GRUNDSTUECK" "Linientyp ARDO_GRENZE mit Text / with text")
  (demo:make "A_WAND_NEU" "True Color 192,0,0")
  (demo:make "A_WAND_BESTAND" "Farbe 250, Bestandswände / existing walls")
  (demo:make "A_WAND_ABBRUCH" "True Color 255,215,0, Linientyp ARDO_STRICH")
  (demo:make "A_WAND_DAEMM" "Farbbuch / colour book RAL CLASSIC 7035, ARDO_DAEMMUNG")
  (demo:make "A_FLAECHE_WF" "aus, nicht plotten / off, not plotted")
  (demo:make "T_BEWEHRUNG" "gefroren / frozen")
  (demo:make "A_PLANKOPF" "gesperrt / locked")
  (demo:make "A_HILFSLINIE_ALT" "aus+gefroren+gesperrt / off+frozen+locked, nicht plotten")
  (demo:make "A_ANSICHTSFENSTER" "in neuen Ansichtsfenstern gefroren / frozen in new viewports")
  (demo:make "X_REFERENZ" "Farbe VonBlock, Linienstärke Vorgabe / ByBlock, default lineweight")
  (princ))

(progn
  ;; 2. A layer that exists is reported, not changed.
  (princ "\n\n2. Vorhandener Layer / existing layer:")
  (demo:note (strcat "kemb_newlayer A_WAND_TRAG again -> "
                     (demo:states (kemb_newlayer "DEMO" "A_WAND_TRAG")) " (unverändert / unchanged)"))
  (princ))

(progn
  ;; 3. Prefix and suffix: the storey and the planning phase.
  (princ "\n\n3. Präfix und Suffix / prefix and suffix:")
  (demo:note (strcat "kemb_newlayer A_TUER \"OG1\" -> "
                     (demo:states (kemb_newlayer "DEMO" "A_TUER" "OG1")) "  name: OG1_A-Türen"))
  (setq demo:made (Kemb_MakeLayer "DEMO" "A_FENSTER" 0 "OG1_" "NEU"))
  (demo:note (strcat "Kemb_MakeLayer A_FENSTER 0 \"OG1_\" \"NEU\" -> " (demo:str demo:made)))
  (princ))

(progn
  ;; 4. States switched by key.
  (princ "\n\n4. Zustände / states:")
  (demo:note (strcat "kemb_setlayer A_ACHSE 4 -> " (demo:states (kemb_setlayer "DEMO" "A_ACHSE" 4))))
  (demo:note (strcat "kemb_setlayer A_FLAECHE_WF 0 -> " (demo:states (kemb_setlayer "DEMO" "A_FLAECHE_WF" 0))))
  (demo:note (strcat "kemb_setlayer T_BEWEHRUNG 0 -> " (demo:states (kemb_setlayer "DEMO" "T_BEWEHRUNG" 0))))
  (demo:note (strcat "kemb_setlayer A_TREPPE 1 (nicht in der Zeichnung / not in drawing) -> "
                     (demo:str (kemb_setlayer "DEMO" "A_TREPPE" 1))))
  (princ))

(progn
  ;; 5. Looking up keys and entry data.
  (princ "\n\n5. Abfragen / queries:")
  (demo:note (strcat "kemb_getlayerkey \"A-Wand-Dämmung\" -> "
                     (demo:str (kemb_getlayerkey "DEMO" "A-Wand-Dämmung"))))
  (demo:note (strcat "kemb_getLayerData A_WAND_DAEMM -> " (demo:str (kemb_getLayerData "DEMO" "A_WAND_DAEMM"))))
  (demo:note (strcat "kemb_newlayer GIBT_ES_NICHT (unknown key) -> "
                     (demo:str (kemb_newlayer "DEMO" "GIBT_ES_NICHT"))))
  (princ))

(progn
  ;; 6. The object type "Wand": which key an inner wall uses.
  (princ "\n\n6. Objektart Wand / object type:")
  (demo:note (strcat "kemb_getObjektLayer Innenwand Wand -> "
                     (demo:str (kemb_getObjektLayer "DEMO" "Innenwand" "Wand" (kemb_pathInfo "Objektarten")))))
  (princ))

(progn
  ;; 7. The suite's wall module, reached through the command stub that ardo wrote: typing
  ;; WANDNEU loads module/wand/wand.lsp and runs it.
  (princ "\n\n7. Befehl WANDNEU über den Befehlsstub / command through the stub:")
  (demo:note (strcat "wand.lsp vorher geladen / loaded before: "
                     (if (boundp 'wand:layer) "ja/yes" "nein/no")))
  (princ))
WANDNEU
(progn
  (demo:note (strcat "CLAYER nach WANDNEU / after WANDNEU: " (getvar "CLAYER")))
  (princ "\nWANDZUSTAND:")
  (princ))
WANDZUSTAND
(progn
  (demo:note "WANDZUSTAND: A-Wand-Abbruch aus/off, A-Wand-Bestand gesperrt/locked")
  ;; From LISP the command is a function; the stub has loaded wand.lsp by now.
  (setq wand:geschoss "OG1")
  (C:WANDNEU)
  (demo:note (strcat "(C:WANDNEU) mit Geschoss / storey OG1 -> CLAYER " (getvar "CLAYER")))
  (princ))

(progn
  ;; 8. Summary: every layer of the drawing, the surveyor's and ardo's.
  (princ "\n\n=== Zusammenfassung / summary ===")
  (princ (strcat "\n" (itoa (length demo:log)) " Schritte / steps; Layer der Zeichnung / drawing layers:"))
  (setq demo:layer (tblnext "LAYER" T))
  (while demo:layer
    (princ (strcat "\n  " (cdr (assoc 2 demo:layer)) "  Farbe/colour " (itoa (cdr (assoc 62 demo:layer)))
                   "  " (cdr (assoc 6 demo:layer))
                   "  [" (demo:states (demo:bits demo:layer)) "]"))
    (setq demo:layer (tblnext "LAYER")))
  (princ "\n")
  (princ))
