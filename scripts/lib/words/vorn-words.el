;;; vorn-words.el --- The words of Vorn scores  -*- lexical-binding: t; -*-

;; Made by scripts/words from scripts/lib/words/vorn-words.el: change that.

;;; Code:

(defconst vorn-words-directives '{{words directive}}
  "Words of includes, macros, constants and conditions.")

(defconst vorn-words-commands '{{words global-command+setting}}
  "Commands between the blocks, and settings.")

(defconst vorn-words-generators '{{words generator}}
  "Generators.")

(defconst vorn-words-with-ranges '{{words generator:range+generator:range-curve}}
  "Generators with ranges, which a letter may open.")

(defconst vorn-words-with-curves '{{words generator:range-curve+generator:set-curve}}
  "Generators with curves.")

(defconst vorn-words-with-equations '{{words generator:equation}}
  "Generators with equations.")

(defconst vorn-words-input-types '{{words input-type}}
  "Types that values are written down in.")

(defconst vorn-words-output-types '{{words output-type}}
  "Types that values are written out in.")

(defconst vorn-words-distributions '{{words distribution}}
  "Letters behind the bracket of a range.")

(defconst vorn-words-curves '{{words curve}}
  "Letters of curves.")

(defconst vorn-words-notes '{{words note}}
  "Letters of notes.")

(defconst vorn-words-accidentals '{{words accidental}}
  "What may stand behind the letter of a note.")

(defconst vorn-words-told
  '{{forms global-command+directive+setting+input-type+output-type+generator}}
  "What each word means, in a line.")

(provide 'vorn-words)

;;; vorn-words.el ends here
