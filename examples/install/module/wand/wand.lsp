;; Wand: the suite's wall module.  It never names a layer itself: ardo gives it the layers
;; by key, from the object type "Wand" and the central layer control file.
;; Commands: WANDNEU (wall layers of the storey, current layer, one wall)
;;           WANDZUSTAND (demolition walls on/off, existing walls locked/unlocked)

;; The storey whose layers WANDNEU makes; ardo puts it before the layer name ("EG_...").
(if (not wand:geschoss) (setq wand:geschoss "EG"))

;; A text of section [WAND] in ardo.msg whose "%s" places take the strings of args in turn.
(defun wand:text (cmd key args / text pos)
  (setq text (kemb_text cmd "WAND" key))
  (if (atom args) (setq args (list args)))
  (while (and text args (setq pos (vl-string-search "%s" text)))
    (setq text (strcat (substr text 1 pos) (car args) (substr text (+ pos 3)))
          args (cdr args)))
  text)

;; The wall layer of an object of type "Wand", made with the storey prefix.
;; Returns (state-bits decorated-name) or nil.
(defun wand:layer (cmd objekt / info)
  (setq info (kemb_getObjektLayer cmd objekt "Wand" (kemb_pathInfo "Objektarten")))
  (cond ((not info) (princ (wand:text cmd "KeinObjekt" objekt)) nil)
        ((Kemb_MakeLayer cmd (car info) 0 wand:geschoss))
        (T (princ (wand:text cmd "KeinLayer" (car info))) nil)))

;; Draws one run of wall lines through the points on the layer, which becomes current; the
;; LINE prompts are not echoed.
(defun wand:linien (layer punkte / echo)
  (setq echo (getvar "CMDECHO"))
  (setvar "CMDECHO" 0)
  (setvar "CLAYER" layer)
  (command "_.LINE")
  (foreach p punkte (command p))
  (command "")
  (setvar "CMDECHO" echo)
  (princ (wand:text "WANDNEU" "Gezeichnet" layer)))

;; The storey's walls: a 10 x 6 outline on the outer-wall layer and a partition on the
;; inner-wall layer; the outer-wall layer stays current.
(defun C:WANDNEU (/ aussen innen)
  (setq aussen (wand:layer "WANDNEU" "Aussenwand")
        innen (wand:layer "WANDNEU" "Innenwand"))
  (if innen (princ (wand:text "WANDNEU" "Fertig" (cadr innen))))
  (if aussen (princ (wand:text "WANDNEU" "Fertig" (cadr aussen))))
  (if innen (wand:linien (cadr innen) '((4.0 0.0) (4.0 6.0))))
  (if aussen (wand:linien (cadr aussen) '((0.0 0.0) (10.0 0.0) (10.0 6.0) (0.0 6.0) "_Close")))
  (princ))

;; Flips one state bit of the (undecorated) layer of key; a layer that is not in the drawing
;; is left alone, since kemb_setlayer never creates one.
(defun wand:umschalten (key bit / name bits)
  (setq name (kemb_getlayername "WANDZUSTAND" key))
  (cond ((not name) (princ (wand:text "WANDZUSTAND" "KeinLayer" key)))
        ((not (tblsearch "LAYER" name)) (princ (wand:text "WANDZUSTAND" "NichtInZeichnung" name)))
        (T
         ;; For a layer that exists, kemb_newlayer only reports its state bits.
         (setq bits (logand (kemb_newlayer "WANDZUSTAND" key) 7))
         (setq bits (if (= (logand bits bit) bit) (- bits bit) (+ bits bit)))
         (setq bits (kemb_setlayer "WANDZUSTAND" key bits))
         (princ (wand:text "WANDZUSTAND" "Zustand" (list name (vl-princ-to-string bits))))))
  bits)

(defun C:WANDZUSTAND ()
  (wand:umschalten "A_WAND_ABBRUCH" 1)
  (wand:umschalten "A_WAND_BESTAND" 4)
  (princ))

(princ)
