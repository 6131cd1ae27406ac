;;; terrix.el --- TERRIX files with terrix lsp through eglot  -*- lexical-binding: t; -*-

;; A mode for TERRIX soil-data input files, and `terrix lsp' as their
;; language server through eglot (built into Emacs 29; from ELPA before).
;; Load it from your init file: (load "/path/to/editors/emacs/terrix.el").
;; `terrix' must be on `exec-path'. :units names the units of the files'
;; values ("kN m"); left empty, each profile's units are deduced from its
;; GAMMAW and ATMPRS.

(define-derived-mode terrix-mode prog-mode "TERRIX"
  "Major mode for TERRIX soil-data input files."
  (setq-local comment-start "* "))

(add-to-list 'auto-mode-alist '("\\.terrix\\'" . terrix-mode))

(with-eval-after-load 'eglot
  (add-to-list 'eglot-server-programs
               '(terrix-mode . ("terrix" "lsp" :initializationOptions (:units "")))))

(add-hook 'terrix-mode-hook #'eglot-ensure)

(provide 'terrix)
;;; terrix.el ends here
