;;; vorn-mode.el --- Editing Vorn scores  -*- lexical-binding: t; -*-

;; SPDX-License-Identifier: MIT
;; Version: 2.1.2
;; Package-Requires: ((emacs "27.1"))
;; Keywords: languages, multimedia

;;; Commentary:

;; Colours scores, tells their mistakes while they are written (Flymake), what a word
;; means (ElDoc) and what may be written (completion).  The words are those of the file
;; vorn-words.el, which is made from the program's own list; mistakes are told by
;; `vornkit check'.
;;
;; What a letter means depends on where it stands: the "e" of mo(T 1 e 0 1) is a curve,
;; that of "no c4 e g" a note.  So matchers ask for the command around them.

;;; Code:

(require 'vorn-words)
(require 'json)
(require 'seq)

(declare-function flymake-make-diagnostic "flymake")

(defgroup vorn nil
  "Editing Vorn scores."
  :group 'languages)

(defcustom vorn-vornkit-program "vornkit"
  "The program that checks and plays scores."
  :type 'string)

;; --- where something stands ---

(defvar vorn-mode-syntax-table
  (let ((table (make-syntax-table)))
    (modify-syntax-entry ?\; "<" table)
    (modify-syntax-entry ?\n ">" table)
    (modify-syntax-entry ?/ ". 14n" table)
    (modify-syntax-entry ?* ". 23bn" table)
    (modify-syntax-entry ?_ "_" table)
    (dolist (mark '(?\" ?' ?< ?> ?= ?+ ?- ?% ?& ?| ?# ?$ ?~ ?@ ?: ?\\))
      (modify-syntax-entry mark "." table))
    table)
  "Comments of scores: to the end of the line, and such as may stand in each other.")

(defun vorn--end-of-block ()
  "Move behind the next closing brace outside comments; nil: there is none."
  (let ((depth 0) (found nil))
    (while (and (not found) (re-search-forward "[};]\\|/\\*\\|\\*/" nil t))
      (pcase (match-string 0)
        ("/*" (setq depth (1+ depth)))
        ("*/" (setq depth (max 0 (1- depth))))
        (";" (when (zerop depth) (end-of-line)))
        ("}" (setq found (zerop depth)))))
    found))

(defun vorn--propertize (start end)
  "Make comments of the blocks between START and END that a minus takes out."
  (goto-char start)
  (while (re-search-forward "\\_<i\\s-*-\\s-*[0-9]" end t)
    (let ((begin (match-beginning 0)))
      (unless (nth 4 (save-excursion (syntax-ppss begin)))
        (put-text-property begin (1+ begin) 'syntax-table (string-to-syntax "!"))
        (when (vorn--end-of-block)
          (put-text-property (1- (point)) (point) 'syntax-table (string-to-syntax "!")))))))

(defun vorn--command-around ()
  "The command in whose parentheses point stands, in lower case; nil: in none."
  (save-excursion
    (let ((open (seq-find (lambda (place) (eq (char-after place) ?\())
                          (reverse (nth 9 (syntax-ppss))))))
      (when open
        (goto-char open)
        (skip-chars-backward " \t")
        (let ((end (point)))
          (skip-chars-backward "A-Za-z0-9")
          (downcase (buffer-substring-no-properties (point) end)))))))

(defun vorn--match-within (pattern commands limit)
  "Search for PATTERN before LIMIT within the parentheses of one of COMMANDS."
  (let (found)
    (while (and (not found) (re-search-forward pattern limit t))
      (setq found (save-match-data
                    (save-excursion
                      (goto-char (match-beginning 1))
                      (and (not (nth 4 (syntax-ppss)))
                           (member (vorn--command-around) commands))))))
    (and found t)))

;; --- colours ---

(defvar vorn--number-face
  (if (facep 'font-lock-number-face) 'font-lock-number-face 'default)
  "Numbers are coloured where Emacs knows a colour for them.")

(defconst vorn--number "[-+]?\\(?:[0-9]+\\.*[0-9]*\\|\\.[0-9]+\\)")

(defun vorn--class (letters)
  "A pattern of one of LETTERS, in either case."
  (regexp-opt-charset (mapcan (lambda (letter) (list (aref letter 0) (upcase (aref letter 0))))
                              letters)))

(defun vorn--words (words)
  "A pattern of one of WORDS, in either case."
  (concat "\\(?:"
          (mapconcat (lambda (word) (mapconcat (lambda (letter) (vorn--class (list (string letter))))
                                               word ""))
                     words "\\|")
          "\\)"))

(defun vorn--called (words)
  "A pattern of WORDS with a parenthesis behind them."
  (concat "\\_<\\(" (vorn--words words) "\\)\\s-*("))

(defconst vorn--curve
  (concat "\\(?:^\\|[^[:alnum:]_.]\\)\\(?:[0-9]*\\.?[0-9]+\\|[~$][[:alnum:]_]+\\)[ \t\n,]+"
          "\\([vV][0-9.]*\\|" (vorn--class vorn-words-curves) "\\|\\*\\)\\(?:[^(]\\|$\\)"))

(defconst vorn--note
  (concat "\\(?:^\\|[^[:alpha:]_$~]\\)"
          "\\(\\(?:" (vorn--class vorn-words-notes)
          (regexp-opt-charset (mapcar (lambda (mark) (aref mark 0)) vorn-words-accidentals))
          "*[0-9]?\\)+\\)\\_>"))

(defun vorn--match-direct (limit)
  "Search before LIMIT for a line that goes to the Csound score."
  (let (found)
    (while (and (not found) (re-search-forward "^[ \t]*\\(>\\)\\(.*\\)" limit t))
      (setq found (save-match-data
                    (<= (nth 0 (save-excursion (syntax-ppss (match-beginning 1)))) 0))))
    found))

(defun vorn--match-note (limit)
  "Search before LIMIT for notes; the next search begins with what ends them."
  (when (re-search-forward vorn--note limit t)
    (goto-char (match-end 1))
    t))

(defconst vorn-font-lock-keywords
  `((,(concat "\\(" (regexp-opt vorn-words-directives) "\\)\\_>") 1 font-lock-preprocessor-face)
    ("#include\\s-*\\(|[^|\n]*|\\)" 1 font-lock-string-face)
    ("#\\(?:define\\|undef\\)\\s-+\\([[:alpha:]][[:alnum:]_]*\\)\\(?:(\\([^)\n]*\\))\\)?"
     (1 font-lock-function-name-face) (2 font-lock-variable-name-face nil t))
    ("#const\\s-+\\([[:alpha:]][[:alnum:]_]*\\)" 1 font-lock-variable-name-face)
    ("~\\["
     ("[[:alpha:]][[:alnum:]_]*" (save-excursion (skip-chars-forward "^]\n") (point)) nil
      (0 font-lock-variable-name-face)))
    ("\\$[[:alpha:]][[:alnum:]_]*" . font-lock-function-name-face)
    ("~\\(?:@[1-4]\\|[[:alpha:]][[:alnum:]_]*\\)" . font-lock-variable-name-face)
    (vorn--match-direct (1 font-lock-keyword-face keep) (2 font-lock-string-face keep))
    ("\\_<\\(i\\(?:\\s-*[0-9]+\\)?\\)\\s-*[=$~]" 1 font-lock-type-face)
    (,(concat "\\_<p[0-9]+\\s-*\\((\\s-*" (vorn--words vorn-words-output-types) "[0-7]?\\s-*)\\)")
     1 font-lock-type-face)
    ,@(mapcar (lambda (commands)
                `((lambda (limit) (vorn--match-within "\\<\\([pP][0-9]+\\)" ',commands limit))
                  1 font-lock-variable-name-face))
              (list vorn-words-with-equations))
    ("\\_<p[0-9]+\\_>" . font-lock-keyword-face)
    (,(vorn--called vorn-words-commands) 1 font-lock-builtin-face)
    (,(vorn--called vorn-words-generators) 1 font-lock-function-name-face)
    ("(\\s-*\\(T\\)\\_>" 1 font-lock-constant-face)
    ((lambda (limit) (vorn--match-within vorn--curve '("te" ,@vorn-words-with-curves) limit))
     1 font-lock-constant-face)
    ((lambda (limit)
       (vorn--match-within ,(concat "\\[\\s-*\\(" (vorn--class vorn-words-distributions) "\\)")
                           ',vorn-words-with-ranges limit))
     1 font-lock-constant-face)
    (,(concat "\\_<" (vorn--words vorn-words-input-types) "[0-7]?\\_>") . font-lock-type-face)
    ("\\_<x[0-9]+\\_>\\|\\_<[zZ]\\_>" . font-lock-builtin-face)
    ("\\_<[rR]\\_>" . font-lock-comment-face)
    (vorn--match-note 1 font-lock-string-face)
    (,(concat "\\(?:^\\|[^[:alnum:]_]\\)\\(" vorn--number "\\)") 1 vorn--number-face))
  "What is coloured in scores; what comes first counts.")

;; --- what a word means, and which there are ---

(defun vorn--word-at-point ()
  "The word below point, in lower case."
  (let ((word (thing-at-point 'symbol t)))
    (and word (downcase word))))

(defun vorn-eldoc (&rest _)
  "What the word below point means, or the command around it."
  (or (cdr (assoc (vorn--word-at-point) vorn-words-told))
      (cdr (assoc (vorn--command-around) vorn-words-told))))

(defun vorn-completion-at-point ()
  "The words of the language, with what they mean beside them."
  (let ((bounds (bounds-of-thing-at-point 'symbol)))
    (when bounds
      (list (if (eq (char-before (car bounds)) ?#) (1- (car bounds)) (car bounds))
            (cdr bounds)
            (mapcar #'car vorn-words-told)
            :exclusive 'no
            :annotation-function (lambda (word) (concat "  " (cdr (assoc word vorn-words-told))))))))

;; --- mistakes ---

(defvar-local vorn--process nil
  "The check that is going on.")

(defun vorn--position (line column)
  "Where LINE and COLUMN are, both counted from 1."
  (save-excursion
    (goto-char (point-min))
    (forward-line (1- line))
    (min (line-end-position) (+ (point) (1- column)))))

(defun vorn--diagnostic (entry)
  "What Flymake is told of ENTRY, a mistake as `vornkit check' writes it."
  (let-alist entry
    (let* ((type (pcase .level ("error" :error) ("warning" :warning) (_ :note)))
           (help (mapconcat (lambda (advice) (concat "\n" advice)) .advice ""))
           (text (concat .text " [" .code "]" help)))
      (if (equal .place.file "<stdin>")
          (let ((begin (vorn--position .place.line .place.column))
                (end (vorn--position .place.end_line .place.end_column)))
            (flymake-make-diagnostic (current-buffer) begin (max end (min (1+ begin) (point-max)))
                                     type text))
        (flymake-make-diagnostic
         (current-buffer) (point-min) (min (1+ (point-min)) (point-max)) type
         (if .place (format "%s:%d: %s" .place.file .place.line text) text))))))

(defun vorn--report (source output report)
  "Give the mistakes that OUTPUT tells of SOURCE to REPORT."
  (let* ((data (with-current-buffer output
                 (goto-char (point-min))
                 (json-parse-buffer :object-type 'alist :array-type 'list
                                    :null-object nil :false-object nil)))
         (entries (alist-get 'diagnostics (car (alist-get 'scores data)))))
    (with-current-buffer source
      (save-restriction
        (widen)
        (funcall report (mapcar #'vorn--diagnostic entries))))))

(defun vorn-flymake (report &rest _)
  "Check the buffer with `vornkit check' and tell its mistakes to REPORT."
  (unless (executable-find vorn-vornkit-program)
    (error "There is no program %s" vorn-vornkit-program))
  (when (process-live-p vorn--process)
    (kill-process vorn--process))
  (let ((source (current-buffer)))
    (setq vorn--process
          (make-process
           :name "vornkit" :noquery t :connection-type 'pipe
           :buffer (generate-new-buffer " *vornkit check*")
           :stderr (get-buffer-create " *vornkit errors*")
           :command (list vorn-vornkit-program "check" "--format" "json" "-")
           :sentinel
           (lambda (process _event)
             (when (memq (process-status process) '(exit signal))
               (unwind-protect
                   (when (and (buffer-live-p source)
                              (eq process (buffer-local-value 'vorn--process source)))
                     (if (memq (process-exit-status process) '(0 1))
                         (vorn--report source (process-buffer process) report)
                       (funcall report :panic :explanation "vornkit check has failed")))
                 (kill-buffer (process-buffer process)))))))
    (save-restriction
      (widen)
      (process-send-region vorn--process (point-min) (point-max))
      (process-send-eof vorn--process))))

;; --- the mode ---

(defvar vorn-imenu
  '(("Blocks" "^\\s-*\\(i\\s-*[0-9]+\\s-*=.*\\){" 1)
    ("Macros" "^#define\\s-+\\([[:alnum:]_]+\\)" 1)
    ("Constants" "^#const\\s-+\\([[:alnum:]_]+\\)" 1))
  "What the menu of a score lists.")

;;;###autoload
(define-derived-mode vorn-mode prog-mode "Vorn"
  "Edit Vorn scores."
  (setq-local comment-start "; ")
  (setq-local comment-end "")
  (setq-local comment-add 0)
  (setq-local comment-start-skip "\\(?:;+\\|/\\*+\\)\\s-*")
  (setq-local parse-sexp-ignore-comments t)
  (setq-local syntax-propertize-function #'vorn--propertize)
  (setq-local font-lock-defaults '(vorn-font-lock-keywords))
  (setq-local imenu-generic-expression vorn-imenu)
  (setq-local indent-line-function #'indent-relative)
  (add-hook 'eldoc-documentation-functions #'vorn-eldoc nil t)
  (add-hook 'completion-at-point-functions #'vorn-completion-at-point nil t)
  (add-hook 'flymake-diagnostic-functions #'vorn-flymake nil t)
  (when buffer-file-name
    (setq-local compile-command
                (concat vorn-vornkit-program " check "
                        (shell-quote-argument (file-name-nondirectory buffer-file-name))))))

;;;###autoload
(add-to-list 'auto-mode-alist '("\\.vorn\\'" . vorn-mode))

(provide 'vorn-mode)

;;; vorn-mode.el ends here
